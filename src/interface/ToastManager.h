#pragma once

#include <QObject>
#include <QString>

namespace Quillstacks {

/// The one notice line of the program. There is no queue and no way to take a timer back: a new notice replaces the
/// text at once, and the timer of the older one still hides it.
class ToastManager final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)
    Q_PROPERTY(bool isShowing READ isShowing NOTIFY isShowingChanged)
public:
    static ToastManager& shared();

    /// The text that is or was last shown.
    [[nodiscard]] const QString& message() const { return currentMessage; }
    [[nodiscard]] bool isShowing() const { return showing; }
    /// Duration in seconds.
    void show(const QString& message, double duration);

Q_SIGNALS:
    void messageChanged();
    void isShowingChanged();

private:
    ToastManager() = default;
    void setShowing(bool isShowing);

    QString currentMessage;
    bool showing = false;
};

} // namespace Quillstacks
