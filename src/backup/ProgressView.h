#pragma once

#include <QPointer>
#include <QWidget>

namespace Quillstacks {

class ProgressBar;
class Sheet;

/// What is seen of long work after half a second. All beneath it is inert from the first moment on.
class ProgressView final : public QWidget {
    Q_OBJECT
public:
    explicit ProgressView(const QString& title, QWidget* parent = nullptr);

    /// From 0 to 1.
    void setFraction(double fraction);
    /// On a sheet over the window of `host`, which goes when it is dismissed.
    static QPointer<ProgressView> present(QWidget* host, const QString& title);
    void dismiss();

private:
    ProgressBar* bar;
};

} // namespace Quillstacks
