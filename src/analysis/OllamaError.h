#pragma once

#include "foundation/LocalizedError.h"

namespace Quillstacks {

/// Why an Ollama server gave no answer.
class OllamaError final : public LocalizedError {
public:
    enum class Case { httpError, invalidURL, invalidResponse, connectionFailed };

    /// Any status but 200.
    [[nodiscard]] static OllamaError httpError(int statusCode) { return {Case::httpError, statusCode}; }
    [[nodiscard]] static OllamaError invalidURL() { return {Case::invalidURL, 0}; }
    /// What answered does not speak HTTP.
    [[nodiscard]] static OllamaError invalidResponse() { return {Case::invalidResponse, 0}; }
    [[nodiscard]] static OllamaError connectionFailed() { return {Case::connectionFailed, 0}; }

    [[nodiscard]] Case which() const { return kind; }
    /// Of httpError.
    [[nodiscard]] int statusCode() const { return code; }
    [[nodiscard]] QString errorDescription() const override;
    [[nodiscard]] QString debugDescription() const override;

private:
    OllamaError(Case which, int statusCode) : kind(which), code(statusCode) {}

    Case kind;
    int code;
};

} // namespace Quillstacks
