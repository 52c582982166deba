#pragma once

#include "interface/Transition.h"

#include <QWidget>

namespace Quillstacks {

class Composition;
class Label;
class TokenizingTextView;

/// The framed editor of a prompt's body, which shows placeholders as tokens. It keeps every character of its text. Tab
/// is a character here: Ctrl+Tab and Shift+Tab leave the editor.
class PromptTextEditor final : public QWidget {
    Q_OBJECT
public:
    explicit PromptTextEditor(QWidget* parent = nullptr);

    /// Cheap: it is kept.
    [[nodiscard]] const QString& text() const;
    /// An equal text touches nothing; another one ends what can be undone. Raises no textChanged().
    void setText(const QString& text);
    /// Whether an input method composes what the text lacks yet.
    [[nodiscard]] bool isComposing() const;
    /// Takes that into the text.
    void commitComposition();
    [[nodiscard]] bool isHovered() const { return hover.target() > 0; }

Q_SIGNALS:
    /// The user has edited the text.
    void textChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showPlaceholder();
    void applyFont();
    void placePlaceholder();

    TokenizingTextView* field;
    Label* placeholder;
    Composition* composition;
    Transition hover;
};

} // namespace Quillstacks
