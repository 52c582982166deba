#include "PromptRow.h"

#include "interface/IconButton.h"
#include "LibraryFixture.h"

#include <QEnterEvent>
#include <QImage>

#include <algorithm>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class PromptRowTest : public LibraryFixture {
protected:
    PromptRow& rowOf(Prompt* prompt, bool isSelected = false) {
        row.onEdit = [this] { ++edits; };
        row.onCopy = [this] { ++copies; };
        row.onTogglePin = [this] { ++pins; };
        row.setPrompt(prompt, isSelected);
        return row;
    }
    IconButton* button(const QString& help) { return named<IconButton>(row, help); }

    PromptRow row;
    int edits = 0;
    int copies = 0;
    int pins = 0;
};

} // namespace

TEST_F(PromptRowTest, aPromptWithSixTagsShowsFour) {
    QList<Tag*> tags;
    for (const char* name : {"f", "e", "d", "c", "b", "a"})
        tags += addTag(QLatin1String(name));
    rowOf(addPrompt(QStringLiteral("t"), QStringLiteral("b"), tags));
    EXPECT_EQ(row.accessibleDescription(), QStringLiteral("f, e, d, c"));
}

TEST_F(PromptRowTest, anEmptyTitleReadsAsUntitled) {
    rowOf(addPrompt(QString()));
    EXPECT_EQ(row.accessibleName(), QStringLiteral("Untitled"));
}

TEST_F(PromptRowTest, theTwoButtonsAreShownWhileHoveredOrSelectedOnly) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    rowOf(prompt);
    EXPECT_FALSE(button(QStringLiteral("Edit")));
    EXPECT_FALSE(button(QStringLiteral("Copy prompt body")));
    row.setHovered(true);
    EXPECT_TRUE(button(QStringLiteral("Edit")));
    EXPECT_TRUE(button(QStringLiteral("Copy prompt body")));
    row.setHovered(false);
    EXPECT_FALSE(button(QStringLiteral("Edit")));
    row.setPrompt(prompt, true);
    EXPECT_TRUE(button(QStringLiteral("Edit")));
}

TEST_F(PromptRowTest, theStarSaysWhatItDoes) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    rowOf(prompt);
    IconButton* star = button(QStringLiteral("Pin prompt to top"));
    ASSERT_TRUE(star);
    EXPECT_EQ(star->symbol(), QStringLiteral("star"));
    prompt->togglePin();
    row.setPrompt(prompt, false);
    EXPECT_EQ(star->symbol(), QStringLiteral("star.fill"));
    EXPECT_EQ(star->toolTip(), QStringLiteral("Unpin prompt"));
    star->click();
    EXPECT_EQ(pins, 1);
}

TEST_F(PromptRowTest, editCallsBack) {
    rowOf(addPrompt(QStringLiteral("t")), true);
    button(QStringLiteral("Edit"))->click();
    EXPECT_EQ(edits, 1);
}

TEST_F(PromptRowTest, afterACopyTheButtonSaysCopiedFor1200Milliseconds) {
    rowOf(addPrompt(QStringLiteral("t")), true);
    IconButton* copy = button(QStringLiteral("Copy prompt body"));
    copy->click();
    EXPECT_EQ(copies, 1);
    EXPECT_TRUE(row.didCopy());
    EXPECT_EQ(copy->toolTip(), QStringLiteral("Copied"));
    EXPECT_EQ(copy->symbol(), QStringLiteral("checkmark.circle.fill"));
    clock.advance(1199ms);
    EXPECT_TRUE(row.didCopy());
    clock.advance(1ms);
    EXPECT_FALSE(row.didCopy());
    EXPECT_EQ(copy->symbol(), QStringLiteral("doc.on.doc"));
}

TEST_F(PromptRowTest, aSecondCopyWithinThatTimeDoesNotProlongIt) {
    rowOf(addPrompt(QStringLiteral("t")), true);
    IconButton* copy = button(QStringLiteral("Copy prompt body"));
    copy->click();
    clock.advance(1s);
    copy->click();
    EXPECT_EQ(copies, 2);
    clock.advance(200ms);
    EXPECT_FALSE(row.didCopy());
}

TEST_F(PromptRowTest, aRowThatIsUsedAgainForAnotherPromptHasNotCopiedIt) {
    rowOf(addPrompt(QStringLiteral("first")), true);
    button(QStringLiteral("Copy prompt body"))->click();
    row.setPrompt(addPrompt(QStringLiteral("second")), true);
    EXPECT_FALSE(row.didCopy());
    button(QStringLiteral("Copy prompt body"))->click();
    clock.advance(1199ms);
    EXPECT_TRUE(row.didCopy());
}

TEST_F(PromptRowTest, theHeightFollowsLinesAndTagsAndIsAtLeast80) {
    Tag* tag = addTag(QStringLiteral("Tag"));
    const QString longBody = QStringLiteral("word ").repeated(200);
    const auto height = [&](const QString& body, const QList<Tag*>& tags) {
        return PromptRow::heightOf(*addPrompt(QStringLiteral("t"), body, tags), 928);
    };
    EXPECT_EQ(height(QString(), {}), 80);
    EXPECT_EQ(height(QStringLiteral("one line"), {}), 80);
    EXPECT_GT(height(QStringLiteral("one line"), {tag}), height(QString(), {tag}));
    EXPECT_GT(height(longBody, {tag}), height(QStringLiteral("one line"), {tag}));
    EXPECT_EQ(height(longBody.repeated(10), {tag}), height(longBody, {tag})); // never more than two lines
    EXPECT_EQ(height(QStringLiteral("one\nline"), {tag}), height(QStringLiteral("one line"), {tag}));
}

TEST_F(PromptRowTest, onlyTheSelectedRowsButtonsAreStopsOfTheTabKey) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    rowOf(prompt, false);
    for (const IconButton* one : row.findChildren<IconButton*>())
        EXPECT_EQ(one->focusPolicy(), Qt::NoFocus);
    row.setPrompt(prompt, true);
    for (const IconButton* one : row.findChildren<IconButton*>())
        EXPECT_EQ(one->focusPolicy(), Qt::TabFocus);
}

TEST_F(PromptRowTest, fourOfSixTagsArePaintedWhereAllHaveRoom) {
    QList<Tag*> tags;
    for (const char* name : {"f", "e", "d", "c", "b", "a"})
        tags += addTag(QLatin1String(name));
    tags[3]->setColorHex(QStringLiteral("#00FF00"));
    tags[4]->setColorHex(QStringLiteral("#FF0000"));
    rowOf(addPrompt(QStringLiteral("t"), QStringLiteral("b"), tags));
    row.resize(928, 100);
    const QImage image = row.grab().toImage();
    const auto paints = [&image](const QColor& color) {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == color)
                    return true;
        return false;
    };
    EXPECT_TRUE(paints(QColor(0, 255, 0)));
    EXPECT_FALSE(paints(QColor(255, 0, 0)));
}

TEST_F(PromptRowTest, theStarIsHalfOpaqueUnlessPinnedOrHovered) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    rowOf(prompt);
    IconButton* star = button(QStringLiteral("Pin prompt to top"));
    const auto strength = [&star] {
        QImage image(star->rect().size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        star->render(&image, {}, {}, QWidget::RenderFlags());
        int strongest = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                strongest = std::max(strongest, image.pixelColor(x, y).alpha());
        return strongest;
    };
    const int rest = strength(); // below 128: the thin line covers no pixel as a whole
    EXPECT_GT(rest, 90);
    EXPECT_LE(rest, 128);
    prompt->togglePin();
    row.setPrompt(prompt, false);
    EXPECT_GT(strength(), 245);
    prompt->togglePin();
    row.setPrompt(prompt, false);
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QApplication::sendEvent(star, &enter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return strength() > 2 * rest - 6; }, 2000));
}

TEST_F(PromptRowTest, theCheckMarkAfterACopyIsGreen) {
    rowOf(addPrompt(QStringLiteral("t")), true);
    IconButton* copy = button(QStringLiteral("Copy prompt body"));
    const auto hasGreen = [&copy] {
        const QImage image = copy->grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == Theme::shared().color(ColorRole::green))
                    return true;
        return false;
    };
    EXPECT_FALSE(hasGreen());
    copy->click();
    EXPECT_TRUE(hasGreen());
    clock.advance(1200ms);
    EXPECT_FALSE(hasGreen());
}

TEST_F(PromptRowTest, aCallbackMayFillTheRowAnewWithOtherCallbacks) {
    Prompt* first = addPrompt(QStringLiteral("first"));
    rowOf(first);
    const QString kept(1000, QLatin1Char('x'));
    QString seen;
    row.onTogglePin = [this, &seen, kept] {
        row.onTogglePin = {};
        seen = kept;
    };
    button(QStringLiteral("Pin prompt to top"))->click();
    EXPECT_EQ(seen, kept);
}

} // namespace Quillstacks
