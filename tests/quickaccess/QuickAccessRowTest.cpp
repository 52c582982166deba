#include "quickaccess/QuickAccessRow.h"

#include "QuickAccessFixture.h"

#include "interface/Theme.h"

#include <QAccessible>

namespace Quillstacks {
namespace {

class QuickAccessRowLook : public LibraryFixture {
protected:
    static constexpr int width = 662;
    static int height(const Prompt* prompt) {
        return QuickAccessRow::heightFor(*prompt, width, QuickAccessRow::Metrics::current());
    }
    QImage paint(const Prompt* prompt, bool isSelected) {
        QuickAccessRow row;
        row.setPrompt(prompt, isSelected);
        row.resize(width, height(prompt));
        QImage image(row.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        row.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
};

TEST_F(QuickAccessRowLook, anEmptyTitleIsShownAsUntitled) {
    EXPECT_EQ(QuickAccessRow::titleText(*add(QString())), QStringLiteral("Untitled"));
    EXPECT_EQ(QuickAccessRow::titleText(*add(QStringLiteral("T"))), QStringLiteral("T"));
}

TEST_F(QuickAccessRowLook, aRowIsAsHighAsItsParts) {
    const int bare = height(add(QStringLiteral("T")));
    const int oneLine = height(add(QStringLiteral("T"), QStringLiteral("short")));
    const int twoLines = height(add(QStringLiteral("T"), QStringLiteral("long ").repeated(100)));
    const int manyLines = height(add(QStringLiteral("T"), QStringLiteral("long ").repeated(1000)));
    const int shortParagraphs = height(add(QStringLiteral("T"), QStringLiteral("one\ntwo\nthree")));
    EXPECT_GT(oneLine, bare);
    EXPECT_GT(twoLines, oneLine);
    EXPECT_EQ(manyLines, twoLines); // never more than two lines
    EXPECT_EQ(shortParagraphs, oneLine);
    const int blanks = height(add(QStringLiteral("T"), QStringLiteral("a") + QString(900, QLatin1Char(' '))));
    EXPECT_EQ(blanks, oneLine);
    const int tagged = height(add(QStringLiteral("T"), {}, {addTag(QStringLiteral("Mail"))}));
    EXPECT_GT(tagged, bare);
    const int full = height(add(QStringLiteral("T"), QStringLiteral("long ").repeated(100),
                                {addTag(QStringLiteral("Mail")), addTag(QStringLiteral("Work"))}));
    EXPECT_GT(full, twoLines);
}

TEST_F(QuickAccessRowLook, theSelectedRowIsTintedWithTheAccent) {
    const Prompt* prompt = add(QStringLiteral("T"), QStringLiteral("body"));
    const QImage plain = paint(prompt, false);
    const QImage selected = paint(prompt, true);
    const QPoint ground(400, 8);
    EXPECT_EQ(plain.pixelColor(ground), QColor(Qt::black));
    const QColor tint = Theme::shared().color(ColorRole::quickSelect);
    EXPECT_NEAR(selected.pixelColor(ground).blue(), tint.blue() * tint.alphaF(), 2);
    EXPECT_NE(plain, selected);
}

TEST_F(QuickAccessRowLook, onlyTheFirstThreeTagsAreShown) {
    QList<Tag*> tags;
    for (const char* name : {"a", "b", "c"})
        tags << addTag(QString::fromLatin1(name));
    const QImage three = paint(add(QStringLiteral("T"), {}, tags), false);
    const QImage four = paint(add(QStringLiteral("T"), {}, tags + QList<Tag*>{addTag(QStringLiteral("d"))}), false);
    EXPECT_EQ(three, four);
    const QImage two = paint(add(QStringLiteral("T"), {}, tags.first(2)), false);
    EXPECT_NE(three, two);
}

class QuickAccessRowSpoken : public QuickAccessFixture {};

TEST_F(QuickAccessRowSpoken, assistiveToolsHearTheTitleAndWhetherItIsSelectedAndCanPressIt) {
    add(QStringLiteral("Letter"), QStringLiteral("text"));
    add(QString(), QStringLiteral("other"));
    show();
    auto* first = QAccessible::queryAccessibleInterface(view->resultList()->row(0));
    auto* second = QAccessible::queryAccessibleInterface(view->resultList()->row(1));
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->text(QAccessible::Name), QStringLiteral("Untitled"));
    EXPECT_EQ(second->text(QAccessible::Name), QStringLiteral("Letter"));
    EXPECT_EQ(second->role(), QAccessible::ListItem);
    EXPECT_TRUE(first->state().selected);
    EXPECT_FALSE(second->state().selected);
    ASSERT_TRUE(second->actionInterface());
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clipboard(), QStringLiteral("text"));
}

} // namespace
} // namespace Quillstacks
