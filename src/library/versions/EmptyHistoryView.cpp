#include "EmptyHistoryView.h"

#include "interface/Label.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int symbolSide = 32;
constexpr int sidePadding = 24;
constexpr int bottomPadding = 70; // the height of the header above, so that the text stands in the sheet's middle

class Sign final : public QWidget {
public:
    Sign() { setFixedSize(symbolSide, symbolSide); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Symbol::paint(painter, rect(), QStringLiteral("clock.arrow.circlepath"),
                      Theme::shared().color(ColorRole::text3));
    }
};

Label* centred(const QString& text, TextStyle style) {
    auto* label = new Label(text, style, ColorRole::text2);
    label->setMaximumLines(0);
    label->setTextAlignment(Qt::AlignHCenter);
    return label;
}

} // namespace

EmptyHistoryView::EmptyHistoryView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("EmptyHistoryView"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(sidePadding, 0, sidePadding, bottomPadding);
    column->setSpacing(0);
    column->addStretch(1);
    column->addWidget(new Sign, 0, Qt::AlignHCenter);
    column->addSpacing(12);
    column->addWidget(centred(QStringLiteral("No version history yet"), TextStyle::body));
    column->addSpacing(4);
    column->addWidget(
        centred(QStringLiteral("Versions are saved automatically when you edit this prompt"), TextStyle::caption));
    column->addStretch(1);
}

} // namespace Quillstacks
