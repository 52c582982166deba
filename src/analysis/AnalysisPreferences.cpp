#include "analysis/AnalysisPreferences.h"

namespace Quillstacks {

const StoredPreference<ModelProviderType>& selectedModelProviderPreference() {
    static const StoredPreference<ModelProviderType> preference(QStringLiteral("selectedModelProvider"),
                                                                ModelProviderType::apple);
    return preference;
}

const StoredPreference<QString>& ollamaBaseURLPreference() {
    static const StoredPreference<QString> preference(QStringLiteral("ollamaBaseURL"),
                                                      QStringLiteral("http://localhost:11434"));
    return preference;
}

const StoredPreference<QString>& ollamaModelPreference() {
    static const StoredPreference<QString> preference(QStringLiteral("ollamaModel"), QStringLiteral("llama3.2"));
    return preference;
}

const StoredPreference<bool>& lexiwellEnabledPreference() {
    static const StoredPreference<bool> preference(QStringLiteral("lexiwellEnabled"), true);
    return preference;
}

} // namespace Quillstacks
