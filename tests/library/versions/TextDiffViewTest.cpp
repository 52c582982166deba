#include "TextDiffView.h"
#include "interface/AppearanceMode.h"
#include "interface/Drawing.h"
#include "LibraryFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QTextBlock>

using namespace Quillstacks;

namespace {

class TextDiffViewTest : public LibraryFixture {
protected:
    TextDiffViewTest() { view.resize(400, 300); }

    static QString copied(TextDiffView& from) {
        from.selectAll();
        from.copy();
        return QApplication::clipboard()->text();
    }
    [[nodiscard]] QTextCharFormat formatOf(int line) const {
        const QTextBlock block = view.document()->findBlockByNumber(line);
        return block.begin().fragment().charFormat();
    }
    /// Far at the right of a line, where there is no text.
    [[nodiscard]] QColor groundOf(int line) {
        const QImage image = view.grab().toImage();
        return image.pixelColor(view.width() - 20, 12 + view.lineHeight() * line + view.lineHeight() / 2);
    }
    static bool isNear(const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) <= 6;
    }
    static QColor tinted(ColorRole role) {
        return mix(Theme::shared().color(ColorRole::field), Theme::shared().color(role), 0.2);
    }

    TextDiffView view;
};

} // namespace

TEST_F(TextDiffViewTest, everyLineIsFollowedByALineEnd) {
    view.setTexts(QStringLiteral("a\nb"), QStringLiteral("a\nc"));
    EXPECT_EQ(copied(view), QStringLiteral("a\nb\nc\n"));
}

TEST_F(TextDiffViewTest, twoTextsThatAreEqualEndInALineEndToo) {
    view.setTexts(QStringLiteral("a"), QStringLiteral("a"));
    EXPECT_EQ(copied(view), QStringLiteral("a\n"));
}

TEST_F(TextDiffViewTest, anEmptyOldTextShowsItsEmptyLine) {
    view.setTexts(QString(), QStringLiteral("new"));
    EXPECT_EQ(copied(view), QStringLiteral("\nnew\n"));
}

TEST_F(TextDiffViewTest, charactersThatTheToolkitUsesForItselfAreCopiedToo) {
    view.setTexts(QStringLiteral("a\u00A0b\uFDD0"), QStringLiteral("a\u00A0b\uFDD1"));
    EXPECT_EQ(copied(view), QStringLiteral("a\u00A0b\uFDD0\na\u00A0b\uFDD1\n"));
}

TEST_F(TextDiffViewTest, aDeletedLineIsRedAndStruckThroughAnInsertedOneGreen) {
    view.setTexts(QStringLiteral("same\nold"), QStringLiteral("same\nnew"));

    EXPECT_FALSE(formatOf(0).hasProperty(QTextFormat::ForegroundBrush)) << "plain text keeps the view's own colour";
    EXPECT_FALSE(formatOf(0).fontStrikeOut());
    EXPECT_EQ(formatOf(1).foreground().color(), Theme::shared().color(ColorRole::red));
    EXPECT_TRUE(formatOf(1).fontStrikeOut());
    EXPECT_EQ(formatOf(2).foreground().color(), Theme::shared().color(ColorRole::green));
    EXPECT_FALSE(formatOf(2).fontStrikeOut());
}

TEST_F(TextDiffViewTest, tintsRunTheFullWidth) {
    view.setTexts(QStringLiteral("same\nold"), QStringLiteral("same\nnew"));

    EXPECT_TRUE(isNear(groundOf(0), Theme::shared().color(ColorRole::field)));
    EXPECT_TRUE(isNear(groundOf(1), tinted(ColorRole::red)));
    EXPECT_TRUE(isNear(groundOf(2), tinted(ColorRole::green)));
    EXPECT_TRUE(isNear(groundOf(3), Theme::shared().color(ColorRole::field)));
}

TEST_F(TextDiffViewTest, coloursFollowTheScheme) {
    view.setTexts(QStringLiteral("old"), QStringLiteral("new"));
    const QColor dark = formatOf(0).foreground().color();

    appearanceModePreference().set(AppearanceMode::light);
    Theme::shared().refresh();

    EXPECT_NE(formatOf(0).foreground().color(), dark);
    EXPECT_EQ(formatOf(0).foreground().color(), Theme::shared().color(ColorRole::red));
    EXPECT_EQ(copied(view), QStringLiteral("old\nnew\n"));
}

TEST_F(TextDiffViewTest, itIsAsHighAsItsLines) {
    view.setTexts(QStringLiteral("a\nb"), QStringLiteral("a\nc"));
    show(view, QSize(400, 300));

    EXPECT_EQ(view.sizeHint().height(), 3 * view.lineHeight() + 24);
}

TEST_F(TextDiffViewTest, otherTextsTakeThePlaceOfTheFirst) {
    view.setTexts(QStringLiteral("old"), QStringLiteral("new"));
    view.setTexts(QStringLiteral("x"), QStringLiteral("x\ny"));

    EXPECT_EQ(copied(view), QStringLiteral("x\ny\n"));
    EXPECT_FALSE(formatOf(0).fontStrikeOut());
}
