#include "analysis/AppleModelProvider.h"

#include "platform/LanguageModel.h"

namespace Quillstacks {

QCoro::Task<QString> AppleModelProvider::generate(QString prompt, QString systemPrompt) {
    const LanguageModelSession session(SystemLanguageModel::defaultModel(), systemPrompt);
    const GenerationOptions options{.sampling = {}, .temperature = {}, .maximumResponseTokens = {}};
    const LanguageModelSession::Response response = co_await session.respond(prompt, options);
    co_return response.content;
}

} // namespace Quillstacks
