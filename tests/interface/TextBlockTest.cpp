#include "interface/TextBlock.h"

#include "interface/TextStyle.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

TextBlock::Format format(int lines) {
    return {textFont(TextStyle::body), 20, lines, Qt::AlignLeft};
}

TEST(TextBlock, aShortTextIsOneLineAndNotCut) {
    const TextBlock block(QStringLiteral("Short"), format(2), 300);
    EXPECT_EQ(block.lineCount(), 1);
    EXPECT_FALSE(block.isTruncated());
    EXPECT_EQ(block.height(), 20);
}

TEST(TextBlock, everyKindOfLineEndBeginsALine) {
    for (const char16_t* text : {u"a\nb", u"a\r\nb", u"a\rb", u"a\u2028b", u"a\u2029b", u"a\u0085b"})
        EXPECT_EQ(TextBlock(QString::fromUtf16(text), format(0), 300).lineCount(), 2);
}

TEST(TextBlock, whatIsLeftOverIsAnEllipsisOnTheLastLine) {
    const TextBlock block(QStringLiteral("one two three four five six seven eight nine ten"), format(2), 90);
    EXPECT_EQ(block.lineCount(), 2);
    EXPECT_TRUE(block.isTruncated());
    EXPECT_LE(block.naturalWidth(), 90);
}

TEST(TextBlock, aLineEndAfterTheLastLineCutsAsWell) {
    EXPECT_TRUE(TextBlock(QStringLiteral("a\nb\nc"), format(2), 300).isTruncated());
    EXPECT_FALSE(TextBlock(QStringLiteral("a\nb"), format(2), 300).isTruncated());
}

TEST(TextBlock, aWordWiderThanTheLineIsBroken) {
    const TextBlock block(QString(400, QLatin1Char('w')), format(0), 200);
    EXPECT_GT(block.lineCount(), 3);
    EXPECT_LE(block.naturalWidth(), 200);
}

} // namespace
} // namespace Quillstacks
