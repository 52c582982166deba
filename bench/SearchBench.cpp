// A key press in a search field: filter by text, order, beside the bare scan of the same texts. The difference between
// the two is what the list and quick access pay for titles, tag names and order.
#include "foundation/LowercaseSearch.h"
#include "library/model/Prompt.h"
#include "library/model/Tag.h"
#include "library/PromptSearch.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

namespace Quillstacks {
namespace {

/// Prompts of 1 KB each, newest first as a live query gives them, three tags each, every hundredth pinned.
class SampleLibrary final {
public:
    explicit SampleLibrary(qsizetype count) {
        for (int i = 0; i < 16; ++i)
            tags.push_back(std::make_unique<Tag>(QStringLiteral("Tag %1").arg(i), QStringLiteral("7C5CFC")));
        std::mt19937 random(7);
        for (qsizetype i = 0; i < count; ++i)
            add(i, count, random);
    }
    [[nodiscard]] const QList<Prompt*>& prompts() const { return all; }
    [[nodiscard]] Uuid firstTag() const { return tags.front()->id(); }

private:
    void add(qsizetype index, qsizetype count, std::mt19937& random) {
        static const QStringList words{QStringLiteral("Review"), QStringLiteral("the"),     QStringLiteral("change"),
                                       QStringLiteral("{{x}}"),  QStringLiteral("careful"), QStringLiteral("Engineer,"),
                                       QStringLiteral("lines"),  QStringLiteral("defects")};
        QString body;
        while (body.size() < 1024)
            body += words[random() % 8] + QLatin1Char(' ');
        const QList<Tag*> own{tags[random() % 16].get(), tags[random() % 16].get(), tags[random() % 16].get()};
        auto prompt = std::make_unique<Prompt>(QStringLiteral("Prompt %1").arg(index), body, own);
        const Date updated = dateFromMicroseconds((count - index) * 1'000'000);
        const bool pinned = index % 100 == 0;
        prompt->restoreIdentity(prompt->id(), updated, updated, pinned, pinned ? std::optional(updated) : std::nullopt);
        all += prompt.get();
        owned.push_back(std::move(prompt));
    }

    std::vector<std::unique_ptr<Tag>> tags;
    std::vector<std::unique_ptr<Prompt>> owned;
    QList<Prompt*> all;
};

const SampleLibrary& sampleOf(qsizetype count) {
    static std::unique_ptr<SampleLibrary> held;
    static qsizetype heldCount = 0;
    if (heldCount != count) {
        held.reset();
        held = std::make_unique<SampleLibrary>(count);
        heldCount = count;
    }
    return *held;
}

// A term that stands nowhere is the dearest: every text is read to its end.
const QString absentTerm = QStringLiteral("zebra");
const QString commonTerm = QStringLiteral("engineer");

void plainScan(benchmark::State& state) {
    const QList<Prompt*>& prompts = sampleOf(state.range(0)).prompts();
    for (auto _ : state) {
        const LowercaseSearch search(absentTerm);
        qsizetype hits = 0;
        for (const Prompt* prompt : prompts)
            hits += search.isIn(prompt->body()) ? 1 : 0;
        benchmark::DoNotOptimize(hits);
    }
}

void search(benchmark::State& state, const QString& term) {
    const QList<Prompt*>& prompts = sampleOf(state.range(0)).prompts();
    for (auto _ : state) {
        QList<Prompt*> found = promptsMatching(prompts, term);
        sortPinnedFirst(found);
        benchmark::DoNotOptimize(found);
    }
}

void searchWithoutHits(benchmark::State& state) {
    search(state, absentTerm);
}
void searchThatHitsAll(benchmark::State& state) {
    search(state, commonTerm);
}
void noSearch(benchmark::State& state) {
    search(state, QString());
}

void filteredPrompts(benchmark::State& state) {
    const SampleLibrary& library = sampleOf(state.range(0));
    for (auto _ : state) {
        QList<Prompt*> found = promptsMatching(promptsWithTag(library.prompts(), library.firstTag()), commonTerm);
        sortPinnedFirst(found);
        benchmark::DoNotOptimize(found);
    }
}

} // namespace

BENCHMARK(plainScan)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(searchWithoutHits)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(searchThatHitsAll)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(noSearch)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(filteredPrompts)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);

} // namespace Quillstacks

BENCHMARK_MAIN();
