// Import and export of a library, each beside a peer with the same rows or the same file: sqlite3 inserting them in one
// transaction, and jq reading and printing the file. The sizes show that the cost grows with the library and no faster.
#include "BackupMerge.h"
#include "ExportRun.h"
#include "ImportRun.h"

#include "backup/ExportDocument.h"
#include "foundation/Log.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <map>
#include <random>
#include <stdexcept>

using namespace Quillstacks;

namespace {

constexpr int versionsOfEach = 5;
/// What is measured beside the peers, and what shows the growth.
constexpr int usualBody = 1000;
constexpr int shortBody = 100;

QString text(std::mt19937& random, int size) {
    static const QStringList words =
        QStringLiteral("review this change as a careful colleague would and name what is \"wrong\" then/or missing "
                       "translate into French keep tone {{language}} write test for each edge case naïve café — ünder")
            .split(QLatin1Char(' '));
    QString result;
    while (result.size() < size)
        result += words[static_cast<qsizetype>(random() % static_cast<unsigned>(words.size()))] +
                  (random() % 12 == 0 ? QLatin1Char('\n') : QLatin1Char(' '));
    return result;
}

/// A store with so many prompts, each with five versions and two of ten tags; its backup; and
/// the statements that insert the same rows.
class Sample final {
public:
    Sample(int prompts, int bodySize) {
        {
            const ModelContainer container(Schema::current(), {path("Quillstacks.store")});
            fill(container.mainContext(), prompts, bodySize);
            ExportRun run(container.mainContext());
            while (run.step()) {
            }
            ExportDocument{run.take()}.write(path("Backup.json"));
        }
        command(QStringLiteral("(echo 'PRAGMA journal_mode=WAL;'; sqlite3 '%1' .dump) > '%2'")
                    .arg(path("Quillstacks.store"), path("rows.sql")));
    }
    [[nodiscard]] QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    static void command(const QString& line) {
        if (std::system(line.toUtf8().constData()) != 0)
            throw std::runtime_error("a command failed: " + line.toStdString());
    }
    static const Sample& of(const benchmark::State& state) {
        static std::map<std::pair<qint64, qint64>, std::unique_ptr<Sample>> made;
        auto& sample = made[{state.range(0), state.range(1)}];
        if (!sample)
            sample = std::make_unique<Sample>(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
        return *sample;
    }

private:
    static void fill(ModelContext& context, int prompts, int bodySize) {
        std::mt19937 random(20250314);
        QList<Tag*> tags;
        for (int number = 0; number < 10; ++number)
            tags +=
                context.insert(std::make_unique<Tag>(QStringLiteral("Tag %1").arg(number), QStringLiteral("7C5CFC")));
        for (int number = 0; number < prompts; ++number) {
            const QList<Tag*> own{tags[number % 10], tags[(number + 3) % 10]};
            Prompt* prompt = context.insert(
                std::make_unique<Prompt>(QStringLiteral("Prompt %1").arg(number), text(random, bodySize), own));
            for (int version = 0; version < versionsOfEach; ++version)
                prompt->appendVersion(
                    std::make_unique<PromptVersion>(prompt->id(), prompt->title(), text(random, bodySize), own));
        }
        context.save();
    }

    QTemporaryDir folder;
};

/// From the file to the saved library, without the pauses between slices.
void importBackup(benchmark::State& state) {
    const Sample& sample = Sample::of(state);
    for (auto _ : state) {
        state.PauseTiming();
        const QTemporaryDir folder;
        auto container = std::make_unique<ModelContainer>(
            Schema::current(), ModelConfiguration{folder.filePath(QStringLiteral("Quillstacks.store"))});
        state.ResumeTiming();
        {
            ImportRun run(sample.path("Backup.json"), container->mainContext(), MergeLookups::of);
            while (run.step()) {
            }
            if (run.result().importedPromptsCount != state.range(0))
                state.SkipWithError("not all prompts were imported");
        }
        state.PauseTiming();
        container.reset();
        state.ResumeTiming();
    }
}

void peerSqlite3(benchmark::State& state) {
    const Sample& sample = Sample::of(state);
    for (auto _ : state) {
        state.PauseTiming();
        const QTemporaryDir folder;
        state.ResumeTiming();
        Sample::command(QStringLiteral("sqlite3 '%1' < '%2' > /dev/null")
                            .arg(folder.filePath(QStringLiteral("peer.db")), sample.path("rows.sql")));
    }
}

/// From the library to the file, fsync included.
void exportBackup(benchmark::State& state) {
    const Sample& sample = Sample::of(state);
    const ModelContainer container(Schema::current(), {sample.path("Quillstacks.store")});
    for (auto _ : state) {
        ExportRun run(container.mainContext());
        while (run.step()) {
        }
        ExportDocument{run.take()}.write(sample.path("Written.json"));
    }
    state.counters["MB"] = static_cast<double>(QFile(sample.path("Written.json")).size()) / 1e6;
}

void peerJq(benchmark::State& state) {
    const Sample& sample = Sample::of(state);
    for (auto _ : state)
        Sample::command(
            QStringLiteral("jq . '%1' > '%2'").arg(sample.path("Backup.json"), sample.path("Printed.json")));
}

void grow(benchmark::internal::Benchmark* measured) {
    measured->ArgNames({"prompts", "body"})->Args({10'000, usualBody});
    for (const int prompts : {1000, 10'000, 100'000})
        measured->Args({prompts, shortBody});
}

BENCHMARK(importBackup)->Apply(grow)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(peerSqlite3)->Args({10'000, usualBody})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(exportBackup)->Apply(grow)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(peerJq)->Args({10'000, usualBody})->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Log::setSink([](const LogRecord&) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
