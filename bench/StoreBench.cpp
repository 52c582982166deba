// The store's costs: one edit saved in a small and in a large library (the ratio is what counts), the opening, and a
// fresh query as the panel makes it.
#include "library/model/LiveQuery.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Quillstacks;

namespace {

/// A library of prompts of 1 KB, ten tags, two of them on every prompt.
class Library {
public:
    explicit Library(int prompts) {
        const ModelContainer container(Schema::current(), {path()});
        ModelContext& context = container.mainContext();
        QList<Tag*> tags;
        for (int number = 0; number < 10; ++number)
            tags.append(context.insert(std::make_unique<Tag>(QString::number(number), QStringLiteral("7C5CFC"))));
        const QString body(1000, QLatin1Char('x'));
        for (int number = 0; number < prompts; ++number) {
            Prompt* prompt = context.insert(
                std::make_unique<Prompt>(QStringLiteral("Prompt %1").arg(number), QString::number(number) + body,
                                         QList<Tag*>{tags.at(number % 10), tags.at((number + 3) % 10)}));
            prompt->setUpdatedAt(dateFromMicroseconds(number * 7919LL % prompts));
        }
        context.save();
    }
    [[nodiscard]] QString path() const { return folder.filePath(QStringLiteral("Quillstacks.store")); }
    [[nodiscard]] std::unique_ptr<ModelContainer> open() const {
        return std::make_unique<ModelContainer>(Schema::current(), ModelConfiguration{path()});
    }

private:
    QTemporaryDir folder;
};

void saveOneEdit(benchmark::State& state) {
    const Library library(static_cast<int>(state.range(0)));
    const auto container = library.open();
    ModelContext& context = container->mainContext();
    const PromptQuery query(context);
    const QList<Prompt*> prompts = context.prompts();
    qint64 edit = 0;
    for (auto _ : state) {
        Prompt* prompt = prompts.at(edit * 7919 % prompts.size());
        prompt->setBody(QString::number(++edit) + QString(1000, QLatin1Char('y')));
        prompt->setUpdatedAt(dateFromMicroseconds(10'000'000 + edit));
        context.save();
        context.processPendingChanges();
    }
}
BENCHMARK(saveOneEdit)->Arg(100)->Arg(100'000)->Iterations(2000)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// As above, with the least of the writing itself: what is left is what the library's size could make slower.
void saveOneTag(benchmark::State& state) {
    const Library library(static_cast<int>(state.range(0)));
    const auto container = library.open();
    ModelContext& context = container->mainContext();
    Tag* tag = context.insert(std::make_unique<Tag>(QStringLiteral("taken by all"), QString()));
    tag->setPrompts(context.prompts());
    context.save();
    Prompt* prompt = context.insert(std::make_unique<Prompt>(QStringLiteral("one more"), QString()));
    for (auto _ : state) {
        prompt->setTags(prompt->tags().isEmpty() ? QList<Tag*>{tag} : QList<Tag*>{});
        context.save();
        context.processPendingChanges();
    }
}
BENCHMARK(saveOneTag)->Arg(100)->Arg(100'000)->Iterations(1000)->Unit(benchmark::kMicrosecond)->UseRealTime();

void openStore(benchmark::State& state) {
    const Library library(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto container = library.open();
        benchmark::DoNotOptimize(container);
        state.PauseTiming();
        container.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(openStore)->Arg(0)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void makePromptQuery(benchmark::State& state) {
    const Library library(static_cast<int>(state.range(0)));
    const auto container = library.open();
    for (auto _ : state) {
        const PromptQuery query(container->mainContext());
        benchmark::DoNotOptimize(query.records().size());
    }
}
BENCHMARK(makePromptQuery)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
