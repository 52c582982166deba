#pragma once

#include "interface/RowText.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QWidget>

#include <functional>
#include <utility>

namespace Quillstacks {

class Prompt;

/// One prompt of the list: title, up to two lines of its body, up to three tags. Painted, and used again for other
/// prompts while the list scrolls.
class QuickAccessRow final : public QWidget {
    Q_OBJECT
public:
    explicit QuickAccessRow(QWidget* parent = nullptr);

    void setPrompt(const Prompt* prompt, bool isSelected);
    [[nodiscard]] const Prompt* prompt() const { return shownPrompt; }
    [[nodiscard]] bool isSelected() const { return selected; }
    /// What a click does; the list calls it.
    std::function<void()> onCopy;

    /// The title as it is shown.
    [[nodiscard]] static QString titleText(const Prompt& prompt);
    /// Heights of a row's parts; good for as long as the fonts stay.
    struct Metrics {
        int title = 0;
        int bodyLine = 0;
        int tags = 0;
        [[nodiscard]] static Metrics current();
    };
    /// How high the row of a prompt is at a width.
    [[nodiscard]] static int heightFor(const Prompt& prompt, int width, const Metrics& metrics);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// What is painted of a prompt.
    struct Content {
        QString title;
        QString body;
        QList<std::pair<QString, QColor>> tags;
        bool operator==(const Content&) const = default;
    };
    void paintTexts(QPainter& painter);

    const Prompt* shownPrompt = nullptr;
    Content content;
    bool selected = false;
    KeptRowText title;
    KeptRowText body;
};

} // namespace Quillstacks
