#include "VariablesList.h"

#include "interface/Accessible.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QPainter>
#include <QPaintEvent>

#include <algorithm>

namespace Quillstacks {

namespace {

constexpr int symbolSize = 6;
constexpr int symbolGap = 8;

int rowHeight() {
    return textLineHeight(TextStyle::subheadline) + 8;
}

} // namespace

VariablesList::VariablesList(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("VariablesList"));
    AccessibleTraits traits;
    traits.role = QAccessible::StaticText;
    setAccessibleTraits(this, traits);
    announce();
    connect(&Theme::shared(), &Theme::changed, this, &QWidget::updateGeometry);
}

void VariablesList::setVariables(const QStringList& variables) {
    if (variables == names)
        return;
    names = variables;
    announce();
    updateGeometry();
    update();
}

QStringList VariablesList::lines() const {
    return names.isEmpty() ? QStringList{QStringLiteral("No variables detected yet.")} : names;
}

void VariablesList::announce() {
    setAccessibleName(lines().join(QStringLiteral(", ")));
}

QSize VariablesList::sizeHint() const {
    return {120, static_cast<int>(lines().size()) * rowHeight()};
}

void VariablesList::paintEvent(QPaintEvent* event) {
    const Theme& theme = Theme::shared();
    const QFont font = textFont(TextStyle::subheadline);
    const QFontMetrics metrics(font);
    const QStringList shown = lines();
    const int left = names.isEmpty() ? 0 : symbolSize + symbolGap;
    const int step = rowHeight();
    const int last = std::min(static_cast<int>(shown.size()) - 1, event->rect().bottom() / step);
    QPainter painter(this);
    painter.setFont(font);
    painter.setPen(theme.color(names.isEmpty() ? ColorRole::text2 : ColorRole::text));
    for (int row = event->rect().top() / step; row <= last; ++row) {
        const QRect line(0, row * step, width(), step);
        painter.drawText(line.adjusted(left, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(shown.at(row), Qt::ElideRight, width() - left));
        if (left > 0)
            Symbol::paint(painter, QRectF(0, line.y() + (step - symbolSize) / 2.0, symbolSize, symbolSize),
                          QStringLiteral("circle.fill"), theme.color(ColorRole::accent));
    }
}

} // namespace Quillstacks
