#pragma once

#include "foundation/StoredPreference.h"

#include <array>

namespace Quillstacks {

/// Which model rates a prompt.
enum class ModelProviderType { apple, ollama };

/// In the order in which a picker lists them.
inline constexpr std::array allModelProviderTypes{ModelProviderType::apple, ModelProviderType::ollama};

/// "Apple Intelligence" and "Ollama": what is stored, and what the user reads.
template <>
struct RawValue<ModelProviderType> {
    static std::optional<ModelProviderType> fromRawValue(const QString& raw);
    static QString rawValue(ModelProviderType type);
};

} // namespace Quillstacks
