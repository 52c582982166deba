#include "analysis/OllamaError.h"

namespace Quillstacks {
namespace {

constexpr int notFound = 404;

} // namespace

QString OllamaError::errorDescription() const {
    switch (kind) {
    case Case::httpError:
        // The name stands for any model: it is not the one that is configured.
        if (code == notFound)
            return QStringLiteral("Ollama model not found. Download it with 'ollama pull llama3.2'.");
        return QStringLiteral("Ollama error (%1). Check that the service is running.").arg(code);
    case Case::invalidURL:
        return QStringLiteral("Invalid Ollama URL.");
    case Case::invalidResponse:
        return QStringLiteral("Invalid response from Ollama.");
    case Case::connectionFailed:
        break;
    }
    return QStringLiteral("Can't connect to Ollama. Make sure Ollama is running (try 'ollama serve').");
}

QString OllamaError::debugDescription() const {
    switch (kind) {
    case Case::httpError:
        return QStringLiteral("OllamaError.httpError(%1)").arg(code);
    case Case::invalidURL:
        return QStringLiteral("OllamaError.invalidURL");
    case Case::invalidResponse:
        return QStringLiteral("OllamaError.invalidResponse");
    case Case::connectionFailed:
        break;
    }
    return QStringLiteral("OllamaError.connectionFailed");
}

} // namespace Quillstacks
