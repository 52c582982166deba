#include "hotkey/ShortcutDisplay.h"

#include "support/Text.h"

#include <QSet>

#include <gtest/gtest.h>

#include <map>

namespace Quillstacks {

namespace {

/// Every key code that has a name on screen.
const std::map<qint64, const char*> named = {
    {0, "A"},    {1, "S"},    {2, "D"},    {3, "F"},    {4, "H"},      {5, "G"},       {6, "Z"},       {7, "X"},
    {8, "C"},    {9, "V"},    {11, "B"},   {12, "Q"},   {13, "W"},     {14, "E"},      {15, "R"},      {16, "Y"},
    {17, "T"},   {31, "O"},   {32, "U"},   {34, "I"},   {35, "P"},     {36, "Return"}, {37, "L"},      {38, "J"},
    {40, "K"},   {45, "N"},   {46, "M"},   {48, "Tab"}, {49, "Space"}, {51, "Delete"}, {53, "Escape"}, {96, "F5"},
    {97, "F6"},  {98, "F7"},  {99, "F3"},  {100, "F8"}, {101, "F9"},   {103, "F11"},   {109, "F10"},   {111, "F12"},
    {118, "F4"}, {120, "F2"}, {122, "F1"}, {123, "←"},  {124, "→"},    {125, "↓"},     {126, "↑"},
};

TEST(KeyCodeDisplayName, isTheTablesForEveryCode) {
    for (qint64 code = -2; code <= 300; ++code) {
        const auto found = named.find(code);
        EXPECT_EQ(keyCodeDisplayName(code), text(found == named.end() ? "?" : found->second)) << code;
    }
}

TEST(KeyCodeDisplayName, theDigitRowCode10AndPunctuationShowAsQuestionMarks) {
    for (qint64 code : {10, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 33, 39, 41, 42, 43, 44, 47, 50})
        EXPECT_EQ(keyCodeDisplayName(code), text("?")) << code;
}

TEST(KeyCodeDisplayName, codesFarOutOfTheTableShowAsQuestionMarks) {
    EXPECT_EQ(keyCodeDisplayName(127), text("?"));
    EXPECT_EQ(keyCodeDisplayName(128), text("?"));
    EXPECT_EQ(keyCodeDisplayName(65535), text("?"));
    EXPECT_EQ(keyCodeDisplayName(std::numeric_limits<qint64>::max()), text("?"));
    EXPECT_EQ(keyCodeDisplayName(std::numeric_limits<qint64>::min()), text("?"));
}

TEST(ShortcutDisplayString, theDefaultReadsShiftCommandSpace) {
    EXPECT_EQ(shortcutDisplayString(1179648, 49), text("⇧⌘Space"));
}

TEST(ShortcutDisplayString, allFourModifiersStandInTheFixedOrderBeforeTheKeysName) {
    EXPECT_EQ(shortcutDisplayString(0x1E0000, 40), text("⌃⌥⇧⌘K"));
}

TEST(ShortcutDisplayString, eachModifierHasItsGlyph) {
    EXPECT_EQ(shortcutDisplayString(0x40000, 0), text("⌃A"));
    EXPECT_EQ(shortcutDisplayString(0x80000, 0), text("⌥A"));
    EXPECT_EQ(shortcutDisplayString(0x20000, 0), text("⇧A"));
    EXPECT_EQ(shortcutDisplayString(0x100000, 0), text("⌘A"));
}

TEST(ShortcutDisplayString, otherFlagsShowNothing) {
    EXPECT_EQ(shortcutDisplayString(0x10000 | 0x800000 | 0x100, 123), text("←"));
    EXPECT_EQ(shortcutDisplayString(0, 36), text("Return"));
}

TEST(ShortcutDisplayString, command1ReadsCommandQuestionMark) {
    EXPECT_EQ(shortcutDisplayString(0x100000, 18), text("⌘?"));
}

TEST(SpelledShortcut, namesTheKeysOfAPcKeyboard) {
    EXPECT_EQ(spelledShortcut(1179648, 49), text("Ctrl+Shift+Space"));
    EXPECT_EQ(spelledShortcut(0x1E0000, 40), text("Super+Ctrl+Alt+Shift+K"));
    EXPECT_EQ(spelledShortcut(0x80000, 51), text("Alt+Backspace"));
    EXPECT_EQ(spelledShortcut(0x100000, 117), text("Ctrl+Delete"));
    EXPECT_EQ(spelledShortcut(0x100000, 126), text("Ctrl+Up"));
}

TEST(SpelledShortcut, alsoNamesKeysThatHaveNoNameOnScreen) {
    EXPECT_EQ(spelledShortcut(0x100000, 18), text("Ctrl+1"));
    EXPECT_EQ(spelledShortcut(0x100000, 41), text("Ctrl+;"));
    EXPECT_EQ(spelledShortcut(0x100000, 76), text("Ctrl+Keypad Enter"));
    EXPECT_EQ(spelledShortcut(0x100000, 200), text("Ctrl+?"));
}

TEST(SpelledShortcut, noTwoKeysShareAName) {
    QSet<QString> seen;
    int count = 0;
    for (qint64 code = 0; code < 128; ++code) {
        const QString name = spelledShortcut(0, code);
        if (name == text("?"))
            continue;
        ++count;
        seen.insert(name);
    }
    EXPECT_EQ(seen.size(), count);
    EXPECT_GT(count, 100);
}

} // namespace
} // namespace Quillstacks
