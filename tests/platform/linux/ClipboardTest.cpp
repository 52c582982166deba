#include "platform/Clipboard.h"
#include "Tool.h"

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

QString pasted(const char* target) {
    return run(QStringLiteral("xclip"),
               {QStringLiteral("-o"), QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-t"),
                QString::fromLatin1(target)});
}

TEST(ClipboardOnX11, anotherProgramPastesTheTextUnchanged) {
    const QString text = QString::fromUtf8("Zeile 1\r\n\tpréfixe “{{name}}” 🙂\u2028end ");
    Clipboard::setString(text);
    EXPECT_EQ(pasted("UTF8_STRING"), text);
    EXPECT_EQ(Clipboard::string(), text);
}

TEST(ClipboardOnX11, holdsPlainTextOnly) {
    Clipboard::setString(QStringLiteral("<b>bold</b>"));
    const QString targets = pasted("TARGETS");
    EXPECT_TRUE(targets.contains(QStringLiteral("text/plain")));
    EXPECT_FALSE(targets.contains(QStringLiteral("text/html")));
}

TEST(ClipboardOnX11, clearedItHoldsNothing) {
    Clipboard::setString(QStringLiteral("text"));
    Clipboard::clearContents();
    EXPECT_TRUE(Clipboard::string().isEmpty());
}

} // namespace
} // namespace Quillstacks
