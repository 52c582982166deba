#include "ShortcutRow.h"

#include "interface/KeyCap.h"
#include "interface/Label.h"

#include <QHBoxLayout>

namespace Quillstacks {

ShortcutRow::ShortcutRow(QString what, QString keys, QWidget* parent)
    : QWidget(parent), title(std::move(what)), shortcut(std::move(keys)) {
    setObjectName(QStringLiteral("ShortcutRow"));
    auto* box = new KeyCap(shortcut, this);
    box->setLarge(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new Label(title, TextStyle::body, ColorRole::text, this), 1);
    row->addWidget(box);
}

} // namespace Quillstacks
