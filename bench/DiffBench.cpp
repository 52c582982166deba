// Line diffs of generated texts, each beside `git diff --no-index --minimal` and GNU `diff -d` on the same two files.
// Ours is timed with all that a caller does: split both texts into lines, compare, walk the result. The peers are timed
// with the start of their process; `git --version` shows how much of git's time that is.

#include "Differ/Diff.h"
#include "Differ/ExtendedDiff.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

/// Source code of this project, all of it in one row and repeated with numbers until there are enough lines.
Lines realLines(std::size_t count) {
    Lines all;
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(QUILLSTACKS_SOURCES)) {
        if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        std::ifstream stream(file);
        for (std::string line; all.size() < count && std::getline(stream, line);) {
            all.push_back(line);
        }
    }
    for (std::size_t line = 0; all.size() < count; ++line) {
        all.push_back(all[line] + " // " + std::to_string(all.size()));
    }
    return all;
}

/// The lines with so many per cent of them replaced by new ones; with 100, none of the old is left.
Lines changed(Lines lines, unsigned percent) {
    std::mt19937 random(20);
    for (std::size_t line = 0; line < lines.size(); ++line) {
        if (std::uniform_int_distribution<unsigned>(0, 99)(random) < percent) {
            lines[line] = "changed " + std::to_string(line) + ": " + lines[line];
        }
    }
    return lines;
}

Lines shuffled(Lines lines) {
    std::shuffle(lines.begin(), lines.end(), std::mt19937(21));
    return lines;
}

std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line;
        text += '\n';
    }
    return text;
}

/// Two texts, and the files that hold them.
struct Pair {
    /// By the arguments of a benchmark, see sizes().
    explicit Pair(const benchmark::State& state)
        : folder(fs::temp_directory_path() / ("quillstacks-diff-" + std::to_string(getpid()))) {
        const Lines source = realLines(static_cast<std::size_t>(state.range(0)));
        const Lines target = changed(source, static_cast<unsigned>(state.range(1)));
        before = joined(source);
        after = joined(state.range(2) != 0 ? shuffled(target) : target);
        fs::create_directories(folder);
        std::ofstream(folder / "before") << before;
        std::ofstream(folder / "after") << after;
    }
    ~Pair() { fs::remove_all(folder); }
    Pair(const Pair&) = delete;
    Pair& operator=(const Pair&) = delete;

    fs::path folder;
    std::string before;
    std::string after;
};

std::vector<std::string_view> split(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

void ours(benchmark::State& state) {
    const Pair texts(state);
    std::size_t differences = 0;
    for (auto _ : state) {
        const Differ::Diff diff = Differ::diff(split(texts.before), split(texts.after));
        differences = diff.size();
        benchmark::DoNotOptimize(diff.elements.data());
    }
    state.counters["differences"] = static_cast<double>(differences);
}

void oursWithMoves(benchmark::State& state) {
    const Pair texts(state);
    for (auto _ : state) {
        const auto diff = Differ::extendedDiff(split(texts.before), split(texts.after));
        benchmark::DoNotOptimize(diff.elements.data());
    }
}

/// Runs a program with its output thrown away; true when it ended with one of the two statuses of a comparison.
bool runs(std::vector<std::string> command) {
    std::vector<char*> arguments;
    for (std::string& part : command) {
        arguments.push_back(part.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    int status = -1;
    const bool isStarted = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    return isStarted && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) <= 1;
}

void peer(benchmark::State& state, const std::vector<std::string>& command) {
    const Pair texts(state);
    std::vector<std::string> full = command;
    full.push_back(texts.folder / "before");
    full.push_back(texts.folder / "after");
    for (auto _ : state) {
        if (!runs(full)) {
            state.SkipWithError("the peer could not be run");
            break;
        }
    }
}

void gitDiff(benchmark::State& state) {
    peer(state, {"git", "-c", "core.pager=cat", "diff", "--no-index", "--minimal", "--no-color"});
}
void gnuDiff(benchmark::State& state) {
    peer(state, {"diff", "-d"});
}
void gitStart(benchmark::State& state) {
    for (auto _ : state) {
        if (!runs({"git", "--version"})) {
            state.SkipWithError("git could not be run");
            break;
        }
    }
}
BENCHMARK(gitStart)->UseRealTime()->Unit(benchmark::kMillisecond);

/// {lines, per cent changed, whether all are in another order}
void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"lines", "changed", "shuffled"})->UseRealTime()->Unit(benchmark::kMillisecond);
    for (const int percent : {0, 1, 10, 100}) {
        for (const int lines : {1000, 5000, 20000}) {
            benchmark->Args({lines, percent, 0});
        }
    }
    for (const int lines : {1000, 5000, 20000}) {
        benchmark->Args({lines, 0, 1});
    }
}
BENCHMARK(ours)->Apply(sizes);
BENCHMARK(oursWithMoves)->Apply(sizes);
BENCHMARK(gitDiff)->Apply(sizes);
BENCHMARK(gnuDiff)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
