#include "PromptEmptyStateView.h"

#include "interface/Button.h"
#include "interface/Drawing.h"
#include "interface/Label.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int columnWidth = 360;
constexpr int sidePadding = 32;
constexpr int bottomPadding = 64;  // the height of the header above, so that the column stands in the window's middle
constexpr qreal symbolLine = 1.25; // a thinner line: the symbol is shown far above its usual size

/// The symbol on its plate.
class Plate final : public QWidget {
public:
    explicit Plate(QWidget* parent) : QWidget(parent) { setFixedSize(160, 120); }

protected:
    void paintEvent(QPaintEvent*) override {
        const Theme& theme = Theme::shared();
        QPainter painter(this);
        fillRounded(painter, rect(), 16, theme.ink(0.035));
        QRectF box(0, 0, 60, 60);
        box.moveCenter(QRectF(rect()).center());
        Symbol::paint(painter, box, QStringLiteral("text.badge.plus"), theme.color(ColorRole::text3), symbolLine);
    }
};

} // namespace

PromptEmptyStateView::PromptEmptyStateView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("PromptEmptyStateView"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(sidePadding, 0, sidePadding, bottomPadding);
    layout->addWidget(buildColumn());
}

QWidget* PromptEmptyStateView::buildColumn() {
    auto* column = new QWidget(this);
    column->setMaximumWidth(columnWidth);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* heading = new Label(QStringLiteral("No prompts yet"), TextStyle::title2, ColorRole::text, column);
    heading->setTextAlignment(Qt::AlignHCenter);
    auto* text = new Label(QStringLiteral("Create your first prompt to start building your library. You can add tags "
                                          "and versions anytime."),
                           TextStyle::body, ColorRole::text2, column);
    text->setMaximumLines(0);
    text->setTextAlignment(Qt::AlignHCenter);
    auto* button = new Button(QStringLiteral("Create a Prompt"), Button::Kind::prominent, column);
    button->setSize(Button::Size::large);
    button->setSymbol(QStringLiteral("plus"));
    connect(button, &QAbstractButton::clicked, this, [this] {
        if (const auto create = onCreate)
            create();
    });
    layout->addStretch();
    layout->addWidget(new Plate(column), 0, Qt::AlignHCenter);
    layout->addSpacing(24);
    layout->addWidget(heading);
    layout->addSpacing(8);
    layout->addWidget(text);
    layout->addSpacing(22);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    layout->addStretch();
    return column;
}

} // namespace Quillstacks
