#pragma once

#include "foundation/LocalizedError.h"

namespace Quillstacks {

/// Why a prompt could not be rated.
class AnalysisError final : public LocalizedError {
public:
    enum class Case { apiError, alreadyAnalyzing, invalidResponse };

    /// Around any failure on the way to the analysis.
    [[nodiscard]] static AnalysisError apiError(const std::exception& underlying);
    [[nodiscard]] static AnalysisError alreadyAnalyzing() { return {Case::alreadyAnalyzing, {}, {}}; }
    [[nodiscard]] static AnalysisError invalidResponse() { return {Case::invalidResponse, {}, {}}; }

    [[nodiscard]] Case which() const { return kind; }
    [[nodiscard]] QString errorDescription() const override;
    [[nodiscard]] QString debugDescription() const override;

private:
    AnalysisError(Case what, QString description, QString debug)
        : kind(what), underlyingDescription(std::move(description)), underlyingDebug(std::move(debug)) {}

    Case kind;
    QString underlyingDescription; ///< of apiError
    QString underlyingDebug;
};

} // namespace Quillstacks
