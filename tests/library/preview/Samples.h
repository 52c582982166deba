#pragma once

namespace Quillstacks {

class ModelContext;

/// Fills a library with prompts of every shape: pinned, long, tagged, plain.
void addSamples(ModelContext& context);

} // namespace Quillstacks
