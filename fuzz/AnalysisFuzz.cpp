// Whatever text a model answers: it is cleaned up and refused with one line that says why, or what was read is written
// and read back as it is. An answer whose only closing braces stand ahead of every opening one must end the process: it
// is passed over. Built with -D QUILLSTACKS_FUZZ=ON and clang; the tests run it for a bounded number of rounds.

#include "analysis/answer/JsonCleanUp.h"
#include "analysis/answer/JsonError.h"
#include "analysis/answer/OllamaResponse.h"
#include "analysis/answer/PromptAnalysis.h"
#include "Graphemes.h"
#include "platform/http/HttpAnswerReader.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace Quillstacks;

namespace {

void require(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

bool endsTheProcess(const QString& answer) {
    const QString text = withoutFence(answer);
    const qsizetype start = Graphemes::first(text, u"{");
    const qsizetype end = Graphemes::last(text, u"}");
    return start >= 0 && end >= 0 && end < start;
}

void requireOneLine(const JsonError& error) {
    const QString line = error.errorDescription();
    require(!line.isEmpty() && !line.contains(QLatin1Char('\n')), "the failure is not one line");
}

void readConnection(const QByteArray& bytes) {
    HttpAnswerReader whole;
    whole.take(bytes);
    HttpAnswerReader halves;
    halves.take(bytes.first(bytes.size() / 2));
    halves.take(bytes.sliced(bytes.size() / 2));
    require(whole.takeEnd() == halves.takeEnd() && whole.body() == halves.body(), "the pieces change the answer");
}

void readServersAnswer(const QByteArray& bytes) {
    try {
        static_cast<void>(OllamaResponse::fromJson(bytes));
    } catch (const JsonError& error) {
        requireOneLine(error);
    }
}

void readModelsAnswer(const QString& answer) {
    if (endsTheProcess(answer))
        return;
    const QString json = cleanJSONResponse(answer);
    if (json.startsWith(QLatin1Char('{')) && json.endsWith(QLatin1Char('}')))
        require(cleanJSONResponse(json) == json, "what is clean is cleaned again");
    try {
        const PromptAnalysis analysis = PromptAnalysis::fromJson(json.toUtf8());
        require(PromptAnalysis::fromJson(analysis.toJson()) == analysis, "what was written reads as something else");
    } catch (const JsonError& error) {
        requireOneLine(error);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const QByteArray input(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    readConnection(input);
    readServersAnswer(input);
    readModelsAnswer(QString::fromUtf8(input));
    return 0;
}
