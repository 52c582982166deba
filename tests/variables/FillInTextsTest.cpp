// The texts, symbols and states of the fill-in sheet.
#include "FillInFixture.h"

#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/IconButton.h"
#include "interface/Label.h"
#include "interface/TextArea.h"
#include "interface/Theme.h"
#include "support/ShownSymbol.h"

#include <QApplication>
#include <QEnterEvent>
#include <QImage>

#include <tuple>

namespace Quillstacks {
namespace {

class FillInTexts : public FillInFixture {
protected:
    static QColor color(ColorRole role) { return Theme::shared().color(role); }
    static QColor edgeOf(QWidget* area) {
        std::ignore = area->window()->grab(); // lays it out
        QImage image(area->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        area->render(&image, {}, {}, QWidget::DrawChildren);
        return image.pixelColor(area->width() / 2, 0);
    }
    static QColor over(const QColor& wash, const QColor& ground) {
        QColor opaque = wash;
        opaque.setAlpha(255);
        return mix(ground, opaque, wash.alphaF());
    }
    static bool isNear(const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) <= 4;
    }
};

TEST_F(FillInTexts, buttonsAndToolTipsAreNamed) {
    auto* view = present(QStringLiteral("{a}"));
    EXPECT_EQ(button(view, "clearButton")->text(), QStringLiteral("Clear"));
    EXPECT_EQ(button(view, "clearButton")->toolTip(), QStringLiteral("Clear all fields"));
    EXPECT_EQ(button(view, "cancelButton")->text(), QStringLiteral("Cancel"));
    EXPECT_EQ(button(view, "copyButton")->text(), QStringLiteral("Copy"));
    QStringList texts;
    for (const auto* label : view->findChildren<Label*>())
        texts << label->text();
    EXPECT_EQ(texts, (QStringList{QStringLiteral("Fill in Variables"), QStringLiteral("for \"Letter\""),
                                  QStringLiteral("1 variable detected in this prompt")}));
}

TEST_F(FillInTexts, symbolsStandInTheirPlaces) {
    auto* view = presentAndWait(QStringLiteral("{a}"));
    EXPECT_TRUE(showsSymbol(*view, QStringLiteral("curlybraces"), 26, color(ColorRole::blue)));
    auto* close = qobject_cast<IconButton*>(button(view, "closeButton"));
    ASSERT_TRUE(close);
    EXPECT_EQ(close->symbol(), QStringLiteral("xmark.circle.fill"));
    EXPECT_TRUE(showsSymbol(*view->inputField(a), QStringLiteral("curlybraces.square"), 15, color(ColorRole::blue)));
    auto* preview = button(view, "previewButton");
    EXPECT_TRUE(showsSymbol(*preview, QStringLiteral("eye"), 16, color(ColorRole::text2)));
    EXPECT_FALSE(showsSymbol(*preview, QStringLiteral("eye.slash"), 16, color(ColorRole::text2)));
    preview->click();
    QTest::qWait(0);
    EXPECT_TRUE(showsSymbol(*preview, QStringLiteral("eye.slash"), 16, color(ColorRole::text2)));
}

TEST_F(FillInTexts, aFilledFieldHasACheckMarkAndSaysSo) {
    VariableInputField input(a, QString());
    input.resize(300, 60);
    const QString mark = QStringLiteral("checkmark.circle.fill");
    EXPECT_FALSE(showsSymbol(input, mark, 15, color(ColorRole::green)));
    EXPECT_EQ(input.findChild<TextArea*>()->accessibleDescription(), QString());
    input.setValue(QStringLiteral("x"));
    EXPECT_TRUE(showsSymbol(input, mark, 15, color(ColorRole::green)));
    EXPECT_EQ(input.findChild<TextArea*>()->accessibleDescription(), QStringLiteral("Filled"));
    input.setValue(QStringLiteral(" "));
    EXPECT_FALSE(showsSymbol(input, mark, 15, color(ColorRole::green)));
    EXPECT_EQ(input.findChild<TextArea*>()->accessibleDescription(), QString());
    const VariableInputField remembered(a, QStringLiteral("kept"));
    EXPECT_EQ(remembered.findChild<TextArea*>()->accessibleDescription(), QStringLiteral("Filled"));
}

TEST_F(FillInTexts, aFieldsEdgeIsClearAtRestSecondaryWhileHoveredAndAccentWithTheKeyboard) {
    VariableInputField input(a, QString());
    input.resize(300, 60);
    auto* area = input.findChild<TextArea*>();
    EXPECT_TRUE(isNear(edgeOf(area), color(ColorRole::field)));
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(area, &enter);
    EXPECT_TRUE(isNear(edgeOf(area), over(Theme::shared().tint(ColorRole::text2, 0.3), color(ColorRole::field))));
    EXPECT_FALSE(isNear(edgeOf(area), color(ColorRole::field)));
    auto* view = presentAndWait(QStringLiteral("{a} {b}"));
    EXPECT_TRUE(FocusRing::isShownFor(field(view, a)));
    EXPECT_FALSE(FocusRing::isShownFor(field(view, b)));
}

TEST_F(FillInTexts, aFieldsTextStands12FromItsSidesAnd8FromItsTop) {
    VariableInputField input(a, QString());
    input.resize(300, 60);
    auto* area = input.findChild<TextArea*>();
    input.ensurePolished();
    EXPECT_EQ(area->sizeHint().height(), textLineHeight(TextStyle::body) + 16);
    host.activateWindow();
    auto* view = presentAndWait(QStringLiteral("{a}"));
    const auto* shown = field(view, a);
    EXPECT_EQ(shown->viewport()->geometry().left(), 12);
    EXPECT_EQ(shown->viewport()->geometry().top(), 8);
    EXPECT_EQ(shown->width() - 1 - shown->viewport()->geometry().right(), 12);
}

TEST_F(FillInTexts, everyGroupHas20PointsAroundIt) {
    auto* view = presentAndWait(QStringLiteral("{a}"));
    const auto top = [view](const QWidget* part) { return part->mapTo(view, QPoint()).y(); };
    QWidget* count = nullptr;
    for (auto* label : view->findChildren<Label*>())
        if (label->text() == view->countText())
            count = label;
    ASSERT_TRUE(count);
    auto* clear = button(view, "clearButton");
    auto* area = view->findChild<QWidget*>(QStringLiteral("fieldList"));
    const int rowBottom = std::max(top(count) + count->height(), top(clear) + clear->height());
    EXPECT_EQ(top(area) - 1 - rowBottom, 20); // the divider is 1
    EXPECT_EQ(count->mapTo(view, QPoint()).x(), 20);
    EXPECT_EQ(top(view->inputField(a)) - top(area), 20);
    auto* copy = button(view, "copyButton");
    EXPECT_EQ(view->height() - top(copy) - copy->height(), 20);
    EXPECT_EQ(view->width() - copy->mapTo(view, QPoint()).x() - copy->width(), 20);
}

} // namespace
} // namespace Quillstacks
