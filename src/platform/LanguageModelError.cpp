#include "platform/LanguageModelError.h"

#include <array>

namespace Quillstacks {

namespace {

constexpr std::array caseNames{"noRuntime",       "noModelFile", "notStarted", "endedWhileLoading",
                               "loadingTimedOut", "ended",       "timedOut",   "refused",
                               "tooLong",         "unreadable",  "empty"};

/// " (llama said this)", or nothing.
QString inParentheses(const QString& detail) {
    return detail.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(detail);
}

} // namespace

LanguageModelError::LanguageModelError(Case what, QString modelFolder, QString modelName, QString said)
    : kind(what), folder(std::move(modelFolder)), model(std::move(modelName)), detail(std::move(said)) {}

QString LanguageModelError::whatHappened() const {
    switch (kind) {
    case Case::noRuntime:
        return QStringLiteral("The on-device model isn't set up: “llama-server” was not found.");
    case Case::noModelFile:
        return QStringLiteral("The on-device model isn't set up: there is no model file.");
    case Case::notStarted:
        return QStringLiteral("“llama-server” could not be started%1.").arg(inParentheses(detail));
    case Case::endedWhileLoading:
        return QStringLiteral("“llama-server” gave up while it loaded “%1”%2.").arg(model, inParentheses(detail));
    case Case::loadingTimedOut:
        return QStringLiteral("“llama-server” took too long to load “%1”.").arg(model);
    case Case::ended:
        return QStringLiteral("“llama-server” ended before the on-device model had answered.");
    case Case::timedOut:
        return QStringLiteral("The on-device model “%1” took too long to answer.").arg(model);
    case Case::refused:
        return QStringLiteral("The on-device model “%1” refused to answer%2.").arg(model, inParentheses(detail));
    case Case::tooLong:
        return QStringLiteral("The answer of the on-device model “%1” was too long to be read.").arg(model);
    case Case::unreadable:
        return QStringLiteral("The answer of “llama-server” could not be understood%1.").arg(inParentheses(detail));
    case Case::empty:
        break;
    }
    return QStringLiteral("The on-device model “%1” gave an empty answer.").arg(model);
}

QString LanguageModelError::whatToDo() const {
    switch (kind) {
    case Case::noRuntime:
    case Case::noModelFile:
        return QStringLiteral("Install llama.cpp, so that its program “llama-server” is on the search path, and put a "
                              "model file (its name ends in “.gguf”) into the folder “%1”.")
            .arg(folder);
    case Case::notStarted:
        return QStringLiteral("Check the installation of llama.cpp.");
    case Case::endedWhileLoading:
        return QStringLiteral("Make sure that llama.cpp is up to date and that the file is a whole model which fits "
                              "into memory, or put another one into the folder “%1”; the first by name is used.")
            .arg(folder);
    case Case::loadingTimedOut:
    case Case::ended:
    case Case::timedOut:
        return QStringLiteral("Try again, or put a smaller model file into the folder “%1”; the first by name is used.")
            .arg(folder);
    case Case::refused:
        return QStringLiteral("Try a shorter prompt, or put another model file into the folder “%1”; the first by name "
                              "is used.")
            .arg(folder);
    case Case::unreadable:
        return QStringLiteral("Make sure that llama.cpp is up to date and that “%1” is a model for conversations.")
            .arg(model);
    case Case::tooLong:
    case Case::empty:
        break;
    }
    return QStringLiteral("Try again, or put another model file into the folder “%1”; the first by name is used.")
        .arg(folder);
}

QString LanguageModelError::errorDescription() const {
    return whatHappened() + QLatin1Char(' ') + whatToDo();
}

QString LanguageModelError::debugDescription() const {
    return QStringLiteral("LanguageModelError.%1(folder: %2, model: %3, detail: %4)")
        .arg(QLatin1String(caseNames[static_cast<size_t>(kind)]), folder, model, detail);
}

} // namespace Quillstacks
