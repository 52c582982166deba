#include "analysis/AnalysisPreferences.h"
#include "support/TestPreferences.h"

#include <gtest/gtest.h>

namespace Quillstacks {

TEST(AnalysisPreferences, absentKeysReadAsTheirDefaults) {
    const TestPreferences preferences;
    EXPECT_EQ(selectedModelProviderPreference().value(), ModelProviderType::apple);
    EXPECT_EQ(ollamaBaseURLPreference().value(), QStringLiteral("http://localhost:11434"));
    EXPECT_EQ(ollamaModelPreference().value(), QStringLiteral("llama3.2"));
    EXPECT_TRUE(lexiwellEnabledPreference().value());
}

TEST(AnalysisPreferences, theProviderIsStoredByTheNameThatTheUserReads) {
    TestPreferences preferences;
    selectedModelProviderPreference().set(ModelProviderType::ollama);
    EXPECT_EQ(preferences->text(QStringLiteral("selectedModelProvider")), QStringLiteral("Ollama"));
}

TEST(AnalysisPreferences, aPreferenceThatHoldsAnUnknownTextSelectsApple) {
    TestPreferences preferences;
    preferences->set(QStringLiteral("selectedModelProvider"), QStringLiteral("ollama"));
    EXPECT_EQ(selectedModelProviderPreference().value(), ModelProviderType::apple);
    preferences->set(QStringLiteral("selectedModelProvider"), true);
    EXPECT_EQ(selectedModelProviderPreference().value(), ModelProviderType::apple);
}

} // namespace Quillstacks
