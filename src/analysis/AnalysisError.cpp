#include "analysis/AnalysisError.h"

namespace Quillstacks {

AnalysisError AnalysisError::apiError(const std::exception& underlying) {
    return {Case::apiError, localizedDescription(underlying), fullDescription(underlying)};
}

QString AnalysisError::errorDescription() const {
    switch (kind) {
    case Case::apiError:
        return QStringLiteral("Analysis failed: ") + underlyingDescription;
    case Case::alreadyAnalyzing:
        return QStringLiteral("An analysis is already in progress");
    case Case::invalidResponse:
        break;
    }
    return QStringLiteral("Failed to parse the analysis response");
}

QString AnalysisError::debugDescription() const {
    switch (kind) {
    case Case::apiError:
        return QStringLiteral("AnalysisError.apiError(%1)").arg(underlyingDebug);
    case Case::alreadyAnalyzing:
        return QStringLiteral("AnalysisError.alreadyAnalyzing");
    case Case::invalidResponse:
        break;
    }
    return QStringLiteral("AnalysisError.invalidResponse");
}

} // namespace Quillstacks
