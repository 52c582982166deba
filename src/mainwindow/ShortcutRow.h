#pragma once

#include <QWidget>

namespace Quillstacks {

/// One shortcut of the help: what it does, and the keys at the end of the line.
class ShortcutRow final : public QWidget {
    Q_OBJECT
public:
    ShortcutRow(QString title, QString shortcut, QWidget* parent = nullptr);

    const QString title;
    const QString shortcut;
};

} // namespace Quillstacks
