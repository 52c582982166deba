// A fuzz target without libFuzzer: every file of a folder as it is, and then so many of them with parts cut out,
// repeated, spoilt or taken from another. The same numbers in every run, so that a failure comes again.
//
//     rounds_<target> FOLDER ROUNDS

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

using Random = std::mt19937;

std::size_t below(Random& random, std::size_t end) {
    return end == 0 ? 0 : random() % end;
}

void change(std::string& text, const std::string& other, Random& random) {
    static const std::string marks = "\"\\{}[],: \n\t-0129eE.tfnu/\xEF\xBB\xBF\xED\xA0\x80\xFF";
    const std::size_t at = below(random, text.size() + 1);
    const std::size_t length = below(random, std::min<std::size_t>(text.size() - at, 40) + 1);
    switch (random() % 6) {
    case 0:
        text.erase(at, length);
        break;
    case 1:
        text.insert(at, text.substr(at, length));
        break;
    case 2:
        text.insert(at, 1, marks[below(random, marks.size())]);
        break;
    case 3:
        if (at < text.size())
            text[at] = marks[below(random, marks.size())];
        break;
    case 4:
        text.insert(at, other.substr(below(random, other.size() + 1), 40));
        break;
    default:
        if (at < text.size())
            text[at] = static_cast<char>(random());
    }
}

void run(const std::string& text) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1]))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> corpus;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        run(corpus.back());
    }
    if (corpus.empty()) {
        std::fprintf(stderr, "no corpus in %s\n", argv[1]);
        return 2;
    }
    Random random(20250314);
    const long rounds = std::strtol(argv[2], nullptr, 10);
    for (long round = 0; round < rounds; ++round) {
        std::string text = corpus[below(random, corpus.size())];
        const std::size_t changes = 1 + below(random, 4);
        for (std::size_t made = 0; made < changes; ++made)
            change(text, corpus[below(random, corpus.size())], random);
        run(text);
    }
    std::printf("%zu files, %ld rounds\n", corpus.size(), rounds);
    return 0;
}
