#include "CommandRow.h"

#include "interface/KeyCap.h"
#include "interface/Label.h"
#include "interface/SymbolImage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int iconFrame = 20;
constexpr int iconSize = 19;

} // namespace

CommandRow::CommandRow(Content shown, QWidget* parent) : QWidget(parent), content(std::move(shown)) {
    setObjectName(QStringLiteral("CommandRow"));
    auto* icon = new QWidget(this);
    icon->setFixedWidth(iconFrame);
    auto* frame = new QHBoxLayout(icon);
    frame->setContentsMargins(0, 0, 0, 0);
    frame->addWidget(new SymbolImage(content.icon, iconSize, ColorRole::text2), 0, Qt::AlignCenter);
    auto* title = new Label(content.title);
    title->setTextStyle(TextStyle::body, QFont::Medium);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(title);
    texts->addWidget(new Label(content.description, TextStyle::caption, ColorRole::text2));
    auto* keys = new KeyCap(content.shortcut);
    keys->setPaddingY(3);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 11, 0, 11);
    row->setSpacing(12);
    row->addWidget(icon);
    row->addLayout(texts, 1);
    row->addWidget(keys);
}

} // namespace Quillstacks
