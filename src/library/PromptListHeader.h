#pragma once

#include <QWidget>

class QHBoxLayout;

namespace Quillstacks {

class Button;
class Label;

/// The line above the prompt list: its title, the count of what a filter lets through, and the two buttons.
class PromptListHeader final : public QWidget {
    Q_OBJECT
public:
    explicit PromptListHeader(QWidget* parent = nullptr);

    /// Empty for no count.
    void setCount(const QString& text);
    void setDeleteEnabled(bool enabled);
    /// Puts a control of the whole window after the list's own buttons, divided from them by a line.
    void addWindowItem(QWidget* item);

Q_SIGNALS:
    void newPromptRequested();
    void deleteRequested();

private:
    /// Sizes that follow the desktop's font.
    void fitFont();

    Label* title;
    Label* count;
    Button* newButton;
    Button* deleteButton;
    QWidget* lastStop;                  ///< of the Tab key, in this header
    QHBoxLayout* windowItems = nullptr; ///< made with the first one
};

} // namespace Quillstacks
