#include "PreviewContent.h"

#include "interface/ColorFromHex.h"
#include "interface/Label.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"
#include "library/model/Tag.h"
#include "ReadOnlyText.h"
#include "VersionTagChips.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int sectionGap = 20;
constexpr int captionGap = 4;
constexpr int symbolSide = 16;

/// The sign before the notice.
class Sign final : public QWidget {
public:
    Sign() { setFixedSize(symbolSide, symbolSide); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Symbol::paint(painter, rect(), QStringLiteral("arrow.triangle.2.circlepath"),
                      Theme::shared().color(ColorRole::blue));
    }
};

Label* caption(const QString& text) {
    return new Label(text, TextStyle::caption, ColorRole::text2);
}

} // namespace

PreviewContent::PreviewContent(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("PreviewContent"));
    const ReadOnlyText::Shape titleShape{
        .style = TextStyle::title3, .minimumLines = 3, .maximumLines = 3, .padding = {}};
    const ReadOnlyText::Shape bodyShape{.leading = 2, .minimumLines = 5, .padding = {}};
    title = new ReadOnlyText(QStringLiteral("Title"), titleShape);
    body = new ReadOnlyText(QStringLiteral("Body"), bodyShape);
    chips = new VersionTagChips;
    notice = buildNotice();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(0);
    column->addWidget(caption(QStringLiteral("Title")));
    column->addSpacing(captionGap - ReadOnlyText::drop(titleShape));
    column->addWidget(title);
    column->addSpacing(sectionGap + ReadOnlyText::drop(titleShape));
    column->addWidget(caption(QStringLiteral("Body")));
    column->addSpacing(captionGap - ReadOnlyText::drop(bodyShape));
    column->addWidget(body);
    column->addSpacing(sectionGap + ReadOnlyText::drop(bodyShape));
    column->addWidget(caption(QStringLiteral("Tags")));
    column->addSpacing(7);
    column->addWidget(chips);
    column->addWidget(notice);
    column->addStretch(1);
}

QWidget* PreviewContent::buildNotice() {
    auto* widget = new QWidget;
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 24, 0, 0);
    row->setSpacing(8);
    row->addWidget(new Sign);
    row->addWidget(caption(QStringLiteral("Different from current version")), 1);
    return widget;
}

void PreviewContent::setFields(const Fields& fields) {
    shown = fields;
    title->setContent(shown.title);
    body->setContent(shown.bodyText);
    notice->setVisible(shown.hasChanges);
    showTags();
}

void PreviewContent::showTags() {
    QList<VersionTagChips::Tag> tags;
    if (shown.isCurrentVersion) {
        for (const Tag* tag : std::as_const(shown.currentTags))
            tags.append({tag->name(), colorFromHex(tag->colorHex())});
    } else {
        for (qsizetype i = 0; i < std::min(shown.tagNames.size(), shown.tagColors.size()); ++i)
            tags.append({shown.tagNames[i], colorFromHex(shown.tagColors[i])});
    }
    chips->setTags(tags);
}

} // namespace Quillstacks
