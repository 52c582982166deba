#include "platform/LanguageModelError.h"

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

using Case = LanguageModelError::Case;

constexpr std::pair<Case, const char*> cases[] = {
    {Case::noRuntime, "noRuntime"},
    {Case::noModelFile, "noModelFile"},
    {Case::notStarted, "notStarted"},
    {Case::endedWhileLoading, "endedWhileLoading"},
    {Case::loadingTimedOut, "loadingTimedOut"},
    {Case::ended, "ended"},
    {Case::timedOut, "timedOut"},
    {Case::refused, "refused"},
    {Case::tooLong, "tooLong"},
    {Case::unreadable, "unreadable"},
    {Case::empty, "empty"},
};

LanguageModelError make(Case what, const QString& detail = {}) {
    return {what, QStringLiteral("/home/x/models"), QStringLiteral("owl.gguf"), detail};
}

TEST(LanguageModelError, everyCaseSaysWhatToDo) {
    for (const auto& [what, name] : cases) {
        const QString text = make(what).errorDescription();
        const bool saysWhatToInstall = text.contains(QStringLiteral(" llama.cpp"));
        const bool saysWhereTheFileBelongs = text.contains(QStringLiteral("the folder “/home/x/models”"));
        EXPECT_TRUE(saysWhatToInstall || saysWhereTheFileBelongs) << name << ": " << qPrintable(text);
        EXPECT_TRUE(text.endsWith(QLatin1Char('.'))) << name;
    }
}

TEST(LanguageModelError, whatIsMissingIsNamedWithRuntimeModelFileAndFolder) {
    for (const Case what : {Case::noRuntime, Case::noModelFile})
        for (const char* part : {"llama-server", "llama.cpp", ".gguf", "/home/x/models"})
            EXPECT_TRUE(make(what).errorDescription().contains(QLatin1String(part))) << part;
}

TEST(LanguageModelError, whatTheRuntimeSaidStandsInParentheses) {
    EXPECT_TRUE(make(Case::refused, QStringLiteral("status 500"))
                    .errorDescription()
                    .startsWith(QStringLiteral("The on-device model “owl.gguf” refused to answer (status 500). ")));
    EXPECT_TRUE(make(Case::refused)
                    .errorDescription()
                    .startsWith(QStringLiteral("The on-device model “owl.gguf” refused to answer. ")));
}

TEST(LanguageModelError, aPercentSignInAValueStaysAsItIs) {
    const LanguageModelError error(Case::endedWhileLoading, QStringLiteral("/%1"), QStringLiteral("%2.gguf"),
                                   QStringLiteral("at 50 %1"));
    EXPECT_TRUE(error.errorDescription().startsWith(
        QStringLiteral("“llama-server” gave up while it loaded “%2.gguf” (at 50 %1). ")))
        << qPrintable(error.errorDescription());
    EXPECT_TRUE(error.errorDescription().contains(QStringLiteral("the folder “/%1”")));
}

TEST(LanguageModelError, theDebugDescriptionNamesTheCase) {
    for (const auto& [what, name] : cases)
        EXPECT_EQ(make(what, QStringLiteral("status 500")).debugDescription(),
                  QStringLiteral("LanguageModelError.%1(folder: /home/x/models, model: owl.gguf, detail: status 500)")
                      .arg(QLatin1String(name)));
}

} // namespace
} // namespace Quillstacks
