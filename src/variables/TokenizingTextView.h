#pragma once

#include <QWidget>

#include <memory>

namespace Quillstacks {

class Coordinator;
class TokenTextView;

/// The editor of a prompt's body: plain text to its user's model, with each placeholder shown as one token. Every
/// character of the text comes back as it went in.
class TokenizingTextView final : public QWidget {
    Q_OBJECT
public:
    explicit TokenizingTextView(QWidget* parent = nullptr);
    ~TokenizingTextView() override;

    /// The plain text. Cheap: it is kept.
    [[nodiscard]] const QString& text() const { return plain; }
    /// A change from outside: an equal text touches nothing, neither caret nor selection; another one replaces the
    /// contents and ends what can be undone. Raises no textChanged().
    void setText(const QString& text);
    /// The view within: focus, fonts, events.
    [[nodiscard]] TokenTextView* textView() const { return view; }
    [[nodiscard]] Coordinator& coordinator() const { return *delegate; }

Q_SIGNALS:
    /// The user has edited the text.
    void textChanged();

private:
    friend class Coordinator;
    /// What the view holds after an edit.
    void takeText(const QString& text);

    QString plain;
    TokenTextView* view;
    std::unique_ptr<Coordinator> delegate;
};

} // namespace Quillstacks
