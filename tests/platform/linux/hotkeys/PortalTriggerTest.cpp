#include "hotkeys/PortalTrigger.h"

#include "platform/HotKeys.h"
#include "platform/VirtualKeys.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

constexpr quint32 z = 6;
constexpr quint32 semicolon = 41;

QString trigger(quint32 keyCode, quint32 modifiers) {
    return portalTrigger(keyCode, modifiers).value_or(QStringLiteral("nothing"));
}

class PortalTriggers : public testing::Test {
protected:
    ~PortalTriggers() override { setLayout("us"); }
    static void setLayout(const char* layout) {
        ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), {QString::fromLatin1(layout)}), 0);
    }
};

TEST_F(PortalTriggers, areModifiersAndTheSymbolsName) {
    EXPECT_EQ(trigger(49, HotKeys::commandBit | HotKeys::shiftBit), QStringLiteral("CTRL+SHIFT+space"));
    EXPECT_EQ(trigger(36, HotKeys::optionBit), QStringLiteral("ALT+Return"));
    EXPECT_EQ(trigger(122, HotKeys::controlBit), QStringLiteral("LOGO+F1"));
    EXPECT_EQ(trigger(z, HotKeys::commandBit | HotKeys::shiftBit | HotKeys::optionBit | HotKeys::controlBit),
              QStringLiteral("CTRL+SHIFT+ALT+LOGO+z"));
}

TEST_F(PortalTriggers, followTheUsersLayout) {
    EXPECT_EQ(trigger(z, HotKeys::optionBit), QStringLiteral("ALT+z"));
    setLayout("de");
    EXPECT_EQ(trigger(z, HotKeys::optionBit), QStringLiteral("ALT+y"));
    EXPECT_EQ(trigger(semicolon, HotKeys::optionBit), QStringLiteral("ALT+odiaeresis"));
    setLayout("ru");
    EXPECT_EQ(trigger(z, HotKeys::optionBit), QStringLiteral("ALT+Cyrillic_ya"));
}

TEST_F(PortalTriggers, withoutAnXServerTheSystemsDefaultLayoutDecides) {
    const QByteArray display = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    EXPECT_EQ(trigger(z, HotKeys::commandBit), QStringLiteral("CTRL+z"));
    EXPECT_EQ(trigger(49, HotKeys::commandBit), QStringLiteral("CTRL+space"));
    qputenv("DISPLAY", display);
}

TEST_F(PortalTriggers, everyLetterAndDigitOfTheTableHasOne) {
    for (quint32 code = 0; code <= 50; ++code)
        EXPECT_EQ(portalTrigger(code, HotKeys::commandBit).has_value(), VirtualKeys::evdevFromVirtual(code).has_value())
            << code;
}

TEST_F(PortalTriggers, aCodeThatNamesNoKeyHasNone) {
    EXPECT_FALSE(portalTrigger(127, HotKeys::commandBit));
    EXPECT_FALSE(portalTrigger(65535, HotKeys::commandBit));
}

} // namespace
} // namespace Quillstacks
