#pragma once

#include "analysis/ModelProviderType.h"

namespace Quillstacks {

/// "selectedModelProvider", apple by default: which model rates a prompt.
[[nodiscard]] const StoredPreference<ModelProviderType>& selectedModelProviderPreference();
/// "ollamaBaseURL", "http://localhost:11434" by default: the server's base, as the user typed it.
[[nodiscard]] const StoredPreference<QString>& ollamaBaseURLPreference();
/// "ollamaModel", "llama3.2" by default.
[[nodiscard]] const StoredPreference<QString>& ollamaModelPreference();
/// "lexiwellEnabled", true by default: whether the prompt editor has the analysis panel.
[[nodiscard]] const StoredPreference<bool>& lexiwellEnabledPreference();

} // namespace Quillstacks
