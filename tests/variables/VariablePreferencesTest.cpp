#include "variables/VariablePreferences.h"

#include "support/TestPreferences.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class VariablePreferences : public testing::Test {
protected:
    TestPreferences preferences;
};

TEST_F(VariablePreferences, variablesAreFilledInUnlessSwitchedOff) {
    EXPECT_TRUE(enableVariableSubstitutionPreference().value());
    enableVariableSubstitutionPreference().set(false);
    EXPECT_EQ(preferences->boolean(QStringLiteral("enableVariableSubstitution")), false);
    EXPECT_FALSE(enableVariableSubstitutionPreference().value());
}

TEST_F(VariablePreferences, aValueOfAnotherTypeReadsAsTheDefault) {
    preferences->set(QStringLiteral("enableVariableSubstitution"), QStringLiteral("no"));
    preferences->set(QStringLiteral("var_count"), qint64{7});
    EXPECT_TRUE(enableVariableSubstitutionPreference().value());
    EXPECT_EQ(rememberedValue(QStringLiteral("count")), QString());
}

TEST_F(VariablePreferences, aVariableNamedAAndAnotherNamedBEachHaveTheirOwnValue) {
    rememberValue(QStringLiteral("a"), QStringLiteral("one"));
    rememberValue(QStringLiteral("b"), QStringLiteral("two"));
    EXPECT_EQ(rememberedValue(QStringLiteral("a")), QStringLiteral("one"));
    EXPECT_EQ(rememberedValue(QStringLiteral("b")), QStringLiteral("two"));
    EXPECT_EQ(preferences->text(QStringLiteral("var_a")), QStringLiteral("one"));
}

TEST_F(VariablePreferences, namesAreKeysAsTheyStand) {
    rememberValue(QStringLiteral("Name"), QStringLiteral("Ada"));
    rememberValue(QStringLiteral("name"), QStringLiteral("Grace"));
    EXPECT_EQ(rememberedValue(QStringLiteral("Name")), QStringLiteral("Ada"));
    EXPECT_EQ(rememberedValue(QStringLiteral("name")), QStringLiteral("Grace"));
}

TEST_F(VariablePreferences, valuesAreKeptAsTheyAreTyped) {
    const QString typed = QStringLiteral("  two\r\nlines \u00A0");
    rememberValue(QStringLiteral("x"), typed);
    EXPECT_EQ(rememberedValue(QStringLiteral("x")), typed);
}

TEST_F(VariablePreferences, removingTheWholeDomainForgetsAllVariableValues) {
    rememberValue(QStringLiteral("x"), QStringLiteral("kept"));
    preferences->removePersistentDomain();
    EXPECT_EQ(rememberedValue(QStringLiteral("x")), QString());
}

} // namespace
} // namespace Quillstacks
