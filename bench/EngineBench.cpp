#include "foundation/LowercaseSearch.h"
#include "foundation/Text.h"
#include "variables/engine/VariableEngine.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace Quillstacks;

/// Prose of the given length with a placeholder in every 100 units.
QString body(qsizetype length) {
    QString text;
    for (int number = 0; text.size() < length; ++number)
        text += QStringLiteral("Write a short answer to the question below, in plain words, and keep to "
                               "the point: {{name%1}}\n")
                    .arg(number % 1000);
    return text.left(length);
}

/// Texts of 1 KB, no two in the same memory, as prompts would be.
std::vector<QString> texts(qsizetype count, QStringView sentence) {
    std::vector<QString> result;
    for (qsizetype number = 0; number < count; ++number) {
        QString text = QString::number(number);
        while (text.size() < 1024)
            text += sentence;
        result.push_back(QStringView(text).first(1024).toString()); // of the size that it needs, as if just read
    }
    return result;
}

constexpr QStringView english = u"Summarise the following text in three sentences; keep names and numbers. ";
constexpr QStringView russian = u"Перескажи следующий текст в трёх предложениях; Сохрани имена и числа. ";

void search(benchmark::State& state, QStringView sentence, QStringView term) {
    const std::vector<QString> all = texts(state.range(0), sentence);
    const LowercaseSearch lowercase(term);
    for (auto _ : state) {
        qsizetype found = 0;
        for (const QString& text : all)
            found += lowercase.isIn(text) ? 1 : 0;
        benchmark::DoNotOptimize(found);
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) * 1024 * 2);
}

void extract(benchmark::State& state) {
    const QString text = body(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(extractVariables(text));
    state.SetBytesProcessed(state.iterations() * text.size() * 2);
}
BENCHMARK(extract)->Arg(1 << 10)->Arg(100 << 10)->Unit(benchmark::kMicrosecond);

void extractFromPlainText(benchmark::State& state) {
    const QString text = body(state.range(0)).remove(QLatin1Char('{'));
    for (auto _ : state)
        benchmark::DoNotOptimize(extractVariables(text));
}
BENCHMARK(extractFromPlainText)->Arg(1 << 10)->Arg(100 << 10)->Unit(benchmark::kMicrosecond);

void tokenMatches(benchmark::State& state) {
    const QString text = body(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(variableTokenMatches(text));
}
BENCHMARK(tokenMatches)->Arg(1 << 10)->Arg(100 << 10)->Unit(benchmark::kMicrosecond);

void substitute(benchmark::State& state) {
    const QString text = body(state.range(0));
    const QStringList variables = extractVariables(text);
    QHash<QString, QString> values;
    for (const QString& name : variables)
        values.insert(name, QStringLiteral("a value"));
    for (auto _ : state)
        benchmark::DoNotOptimize(substituteVariables(text, variables, values));
}
BENCHMARK(substitute)->Arg(1 << 10)->Arg(100 << 10)->Unit(benchmark::kMicrosecond);

void searchForWhatOccursNowhere(benchmark::State& state) {
    search(state, english, u"quillwort");
}
BENCHMARK(searchForWhatOccursNowhere)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void searchForCommonLetters(benchmark::State& state) {
    search(state, english, u"the t ");
}
BENCHMARK(searchForCommonLetters)->Arg(10'000)->Unit(benchmark::kMillisecond);

void searchInCyrillic(benchmark::State& state) {
    search(state, russian, u"СТРОКА");
}
BENCHMARK(searchInCyrillic)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);

void searchForTheDottedCapitalI(benchmark::State& state) {
    search(state, english, u"\u0130stanbul");
}
BENCHMARK(searchForTheDottedCapitalI)->Arg(10'000)->Unit(benchmark::kMillisecond);

/// What the search does without: a lower-cased copy of each text.
void lowerCasedCopies(benchmark::State& state) {
    const std::vector<QString> all = texts(state.range(0), english);
    const QString term = QStringLiteral("quillwort");
    for (auto _ : state) {
        qsizetype found = 0;
        for (const QString& text : all)
            found += Text::lowercased(text).contains(term) ? 1 : 0;
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(lowerCasedCopies)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
