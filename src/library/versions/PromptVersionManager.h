#pragma once

#include <QtGlobal>

namespace Quillstacks {

class ModelContext;
class Prompt;
class PromptVersion;

/// Keeps the history of a prompt: earlier states only, the present one is not among them. Saves nothing itself.
class PromptVersionManager final {
public:
    PromptVersionManager() = delete;

    /// Adds the prompt's present text to its versions, unless the newest of them holds the same title and body, and
    /// then deletes the oldest beyond `limit`. Nothing is deleted where nothing was added. A negative limit ends the
    /// process. Throws StoreError when the versions can't be read.
    static void createVersion(Prompt& prompt, ModelContext& context, qint64 limit);
    /// Puts the version's title and body into the prompt and makes it updated now. The prompt's tags stay.
    static void restoreVersion(const PromptVersion& version, Prompt& prompt);
};

} // namespace Quillstacks
