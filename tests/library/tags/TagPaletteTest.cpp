#include "TagPalette.h"

#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace Quillstacks {

TEST(TagPalette, holdsItsSixteenColoursInOrderEightToARow) {
    const QString first = QStringLiteral("7C5CFC F6C549 2BB673 FF6B6B 4D96FF FF8E3C 6D6D6D B36AE2");
    const QString second = QStringLiteral("2EC4B6 E71D36 9B5DE5 F15BB5 00BBF9 00F5D4 E36414 2D6A4F");
    EXPECT_EQ(TagPalette::columns, 8);
    EXPECT_EQ(TagPalette::colors().mid(0, 8).join(QLatin1Char(' ')), first);
    EXPECT_EQ(TagPalette::colors().mid(8).join(QLatin1Char(' ')), second);
}

TEST(TagPalette, beginsANewTagWithItsFirstColour) {
    EXPECT_EQ(TagPalette::firstColor(), QStringLiteral("7C5CFC"));
}

TEST(TagPalette, namesEachOfItsColoursDifferently) {
    QSet<QString> names;
    for (const QString& color : TagPalette::colors()) {
        EXPECT_NE(TagPalette::nameOf(color), color);
        names.insert(TagPalette::nameOf(color));
    }
    EXPECT_EQ(names.size(), 16);
    EXPECT_EQ(TagPalette::nameOf(QStringLiteral("123456")), QStringLiteral("123456"));
}

} // namespace Quillstacks
