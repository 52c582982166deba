#pragma once

#include "library/restore/StatusMessage.h"

#include <functional>

namespace Quillstacks {

class ModelContext;

/// The way back to a fresh start while the program runs on.
namespace FactoryRestore {

using Done = std::function<void(const StatusMessage&)>;

/// Deletes versions, prompts and tags, saves, removes all preferences, and registers the hot key that then holds: in
/// this order, each on a turn of the main loop of its own, the first on the next. What fails ends it there; records
/// deleted by then stay deleted in the context. `done` is called once, at the end. Ends in silence when the context is
/// destroyed first.
void run(ModelContext& context, Done done);

} // namespace FactoryRestore
} // namespace Quillstacks
