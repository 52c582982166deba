#pragma once

#include "foundation/LocalizedError.h"

#include <QString>

namespace Quillstacks {

/// Why the on-device model gave no answer. The sentence for the user ends with what to do about it.
class LanguageModelError final : public LocalizedError {
public:
    enum class Case {
        noRuntime,         ///< the program that runs models isn't installed
        noModelFile,       ///< there is no model to run
        notStarted,        ///< the runtime could not be started
        endedWhileLoading, ///< it gave up on the model file
        loadingTimedOut,
        ended,      ///< it was gone before the answer came
        timedOut,   ///< no answer in time
        refused,    ///< an answer that says no
        tooLong,    ///< more than can be held
        unreadable, ///< not what a runtime answers
        empty,      ///< an answer without a word
    };

    /// `folder` is where model files belong, `model` the name of the one in use, where there is one. `detail` is what
    /// the runtime or the system said, if anything.
    LanguageModelError(Case what, QString folder, QString model = {}, QString detail = {});

    [[nodiscard]] Case which() const { return kind; }
    [[nodiscard]] QString errorDescription() const override;
    [[nodiscard]] QString debugDescription() const override;

private:
    [[nodiscard]] QString whatHappened() const;
    [[nodiscard]] QString whatToDo() const;

    Case kind;
    QString folder;
    QString model;
    QString detail;
};

} // namespace Quillstacks
