#pragma once

#include <QWidget>

namespace Quillstacks {

/// One line of the welcome's list of shortcuts.
class CommandRow final : public QWidget {
    Q_OBJECT
public:
    struct Content {
        QString icon; ///< a symbol's name
        QString title;
        QString description;
        QString shortcut;
    };
    explicit CommandRow(Content content, QWidget* parent = nullptr);

    const Content content;
};

} // namespace Quillstacks
