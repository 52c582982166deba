#pragma once

#include "platform/LanguageModel.h"
#include "platform/LanguageModelError.h"

#include <QJsonObject>
#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

namespace Quillstacks {

/// Runs the main loop until this holds; false when it does not in time.
[[nodiscard]] bool eventually(const std::function<bool()>& holds,
                              std::chrono::milliseconds patience = std::chrono::seconds(10));
/// Whether such a process is there and not merely a mark that nobody has fetched yet.
[[nodiscard]] bool isRunning(qint64 pid);

/// A turn in the making, and what became of it.
struct Turn {
    std::optional<QString> answer;
    std::optional<LanguageModelError> error;
    bool isOver = false;
};

/// A data folder of one's own, and a stand-in for llama-server as the only program on the search path.
class LanguageModelTest : public testing::Test {
protected:
    LanguageModelTest();
    ~LanguageModelTest() override;

    /// Puts a model file into the data folder; the stand-in behaves as `mode` says. Gives its path.
    QString putModel(const QString& mode, const QString& name = QStringLiteral("model.gguf"));
    [[nodiscard]] QString folder() const { return data.filePath(QStringLiteral("app.Quillstacks")); }
    /// An empty folder in place of the search path.
    void takeRuntimeAway();

    /// Starts a turn, in a session that is gone at once.
    void ask(Turn& turn, const QString& prompt = QStringLiteral("Hi"), GenerationOptions options = {});
    /// Starts a turn and waits for its end. The text of the answer.
    QString answerTo(const QString& prompt = QStringLiteral("Hi"), GenerationOptions options = {});
    /// The same for a turn that must fail.
    std::optional<LanguageModelError> failure();
    /// Does so with a model in this mode, and expects an error of this kind that says what to do.
    void expectFailure(const QString& mode, LanguageModelError::Case kind, const QString& words);

    /// What the stand-in has noted: its starts, and the questions that came.
    [[nodiscard]] static std::vector<QJsonObject> runs(const QString& model);
    [[nodiscard]] static std::vector<QJsonObject> questions(const QString& model);
    /// The latest start's process; 0 before the first.
    [[nodiscard]] static qint64 pidOf(const QString& model);

    QTemporaryDir data;
    QTemporaryDir nowhere;

private:
    QByteArray searchPath = qgetenv("PATH");
};

} // namespace Quillstacks
