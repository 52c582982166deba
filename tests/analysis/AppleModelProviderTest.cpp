#include "analysis/AppleModelProvider.h"
#include "analysis/ModelProviderType.h"
#include "platform/FakeDesktop.h"
#include "platform/LanguageModelError.h"
#include "support/TestPreferences.h"

#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

/// A call in the making, and what became of it.
struct Call {
    QString answer;
    QString error;
    bool isOver = false;
};

QCoro::Task<> follow(Call& call, QCoro::Task<QString> task) {
    try {
        call.answer = co_await task;
    } catch (const std::exception& error) {
        call.error = localizedDescription(error);
    }
    call.isOver = true;
}

class AppleModelProviderTest : public testing::Test {
protected:
    /// A call to a provider of its own, as each analysis makes it.
    void call(Call& result, const QString& prompt, const QString& systemPrompt = QStringLiteral("Rate")) {
        follow(result, providers.emplace_back(std::make_unique<AppleModelProvider>())->generate(prompt, systemPrompt));
    }
    FakeDesktop& desktop = FakeDesktop::fresh();

private:
    std::vector<std::unique_ptr<AppleModelProvider>> providers;
};

TEST_F(AppleModelProviderTest, givesTheTextOfTheModelsAnswer) {
    desktop.modelAnswer = [](const auto& turn) { return QStringLiteral(" {\"of\": \"%1\"}\n").arg(turn.prompt); };
    Call result;
    call(result, QStringLiteral("Hi"));
    EXPECT_TRUE(result.isOver);
    EXPECT_EQ(result.answer, QStringLiteral(" {\"of\": \"Hi\"}\n")) << "unchanged";
    EXPECT_TRUE(result.error.isEmpty());
}

TEST_F(AppleModelProviderTest, theSystemPromptBecomesTheSessionsInstructions) {
    Call result;
    call(result, QStringLiteral("Hi"), QStringLiteral("Be brief"));
    ASSERT_EQ(desktop.modelTurns.size(), 1U);
    EXPECT_EQ(desktop.modelTurns.front().instructions, QStringLiteral("Be brief"));
    EXPECT_EQ(desktop.modelTurns.front().prompt, QStringLiteral("Hi"));
}

TEST_F(AppleModelProviderTest, theOptionsCarryNoTemperatureAndNoTokenLimit) {
    Call result;
    call(result, QStringLiteral("Hi"));
    ASSERT_EQ(desktop.modelTurns.size(), 1U);
    const GenerationOptions& options = desktop.modelTurns.front().options;
    EXPECT_FALSE(options.sampling);
    EXPECT_FALSE(options.temperature);
    EXPECT_FALSE(options.maximumResponseTokens);
}

TEST_F(AppleModelProviderTest, twoAnalysesInTurnUseTwoSeparateSessions) {
    AppleModelProvider provider;
    Call first;
    Call second;
    follow(first, provider.generate(QStringLiteral("one"), QStringLiteral("Rate")));
    follow(second, provider.generate(QStringLiteral("two"), QStringLiteral("Rate")));
    EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("LanguageModelSession"), QStringLiteral("respond"),
                                          QStringLiteral("LanguageModelSession"), QStringLiteral("respond")}));
    ASSERT_EQ(desktop.modelTurns.size(), 2U);
    EXPECT_EQ(desktop.modelTurns.back().prompt, QStringLiteral("two")) << "it knows nothing of the first";
    EXPECT_EQ(desktop.modelTurns.back().instructions, QStringLiteral("Rate"));
}

TEST_F(AppleModelProviderTest, nothingIsAskedOfTheModelAheadOfTheCall) {
    const AppleModelProvider provider;
    EXPECT_TRUE(desktop.calls.isEmpty());
}

TEST_F(AppleModelProviderTest, waitsForTheModelWithoutHoldingUpTheProgram) {
    desktop.holdModel();
    desktop.modelAnswer = [](const auto&) { return QStringLiteral("late"); };
    Call result;
    call(result, QStringLiteral("Hi"));
    QCoreApplication::processEvents();
    EXPECT_FALSE(result.isOver);
    desktop.releaseModel();
    EXPECT_TRUE(QTest::qWaitFor([&] { return result.isOver; }));
    EXPECT_EQ(result.answer, QStringLiteral("late"));
}

TEST_F(AppleModelProviderTest, aFailureOfTheModelPassesUnchanged) {
    const LanguageModelError failure(LanguageModelError::Case::noModelFile, QStringLiteral("/home/x/models"));
    desktop.modelAnswer = [&failure](const auto&) -> QString { throw failure; };
    Call result;
    call(result, QStringLiteral("Hi"));
    EXPECT_TRUE(result.isOver);
    EXPECT_EQ(result.error, failure.errorDescription());
    EXPECT_TRUE(result.error.contains(QStringLiteral("/home/x/models")));
}

} // namespace
} // namespace Quillstacks
