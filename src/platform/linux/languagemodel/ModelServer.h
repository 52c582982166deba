#pragma once

#include "languagemodel/ModelRun.h"

#include <QCoroTask>

#include <optional>

namespace Quillstacks {

/// The one llama-server of this program: started when it is needed, ended after five minutes without use, and with the
/// program. Lives as long as the process.
class ModelServer final : public QObject {
    Q_OBJECT
public:
    static ModelServer& shared();

    /// Somebody's wish to have the server; while one is alive, it isn't idle.
    class Use final {
    public:
        explicit Use(ModelServer& server);
        ~Use();
        Q_DISABLE_COPY_MOVE(Use)

    private:
        ModelServer& server;
    };

    /// The run that answers, started now unless it was before. Valid until the caller awaits something else. Throws
    /// LanguageModelError.
    [[nodiscard]] QCoro::Task<const ModelRun*> ready();

    /// Ends a server that did not answer, unless others wait for it: it may hang.
    void giveUp();

Q_SIGNALS:
    /// A start came to its end, well or not.
    void settled();

private:
    ModelServer();
    void choose();
    [[nodiscard]] bool isSharedByOthers() const { return uses > 1; }
    void start(ModelFiles files);
    void end();

    std::unique_ptr<ModelRun> run;             ///< none while the server doesn't run
    std::optional<LanguageModelError> failure; ///< why the last run ended, if it failed
    int uses = 0;
    quint64 lastUse = 0; ///< a number for each change of `uses`
};

} // namespace Quillstacks
