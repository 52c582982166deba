#pragma once

#include "ReadOnlyText.h"
#include "TextDiff.h"

namespace Quillstacks {

/// Two texts shown as one, line by line: what went is red and struck through, what came is green. A line end follows
/// each line, also when it is copied.
class TextDiffView final : public ReadOnlyText {
    Q_OBJECT
public:
    explicit TextDiffView(QWidget* parent = nullptr);

    void setTexts(const QString& oldText, const QString& newText);
    [[nodiscard]] const QString& oldText() const { return older; }
    [[nodiscard]] const QString& newText() const { return newer; }
    [[nodiscard]] const QList<DiffLine>& lines() const { return shown; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void refresh() override;

private:
    void render();
    void writeLines(QTextDocument& fresh) const;
    void paintTints(QPainter& painter) const;

    QString older;
    QString newer;
    QList<DiffLine> shown;
};

} // namespace Quillstacks
