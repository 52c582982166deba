#include "analysis/ModelProviderType.h"

namespace Quillstacks {

std::optional<ModelProviderType> RawValue<ModelProviderType>::fromRawValue(const QString& raw) {
    for (const ModelProviderType type : allModelProviderTypes)
        if (raw == rawValue(type))
            return type;
    return std::nullopt;
}

QString RawValue<ModelProviderType>::rawValue(ModelProviderType type) {
    switch (type) {
    case ModelProviderType::apple:
        break;
    case ModelProviderType::ollama:
        return QStringLiteral("Ollama");
    }
    return QStringLiteral("Apple Intelligence");
}

} // namespace Quillstacks
