// Runs a fuzz target without a fuzzer: every file of a corpus folder, then mutations of these from
// a fixed seed, the same on every machine.
//   replay_<target> <corpus folder> <number of mutations> [<part> <parts>]
// With a part, from 1, only every so many inputs are run, so that all parts together run each once.
#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fuzz_target.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t longest = 4096;

std::vector<Bytes> readCorpus(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::sort(files.begin(), files.end());  // folders list their files in any order
    std::vector<Bytes> corpus;
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(stream),
                            std::istreambuf_iterator<char>());
    }
    return corpus;
}

class Mutator {
  public:
    explicit Mutator(const std::vector<Bytes>& corpus) : corpus_(corpus) {}

    Bytes next() {
        Bytes input = corpus_[below(corpus_.size())];
        for (std::size_t changes = below(6) + 1; changes > 0; --changes) change(input);
        if (input.size() > longest) input.resize(longest);
        return input;
    }

  private:
    // The distributions of the standard library differ between machines; the generator doesn't.
    std::size_t below(std::size_t end) { return random_() % end; }

    void change(Bytes& input) {
        const std::size_t at = below(input.size() + 1);
        const auto place = input.begin() + static_cast<std::ptrdiff_t>(at);
        const bool inside = place != input.end();
        switch (below(6)) {
            case 0:
                input.insert(place, static_cast<std::uint8_t>(below(256)));
                break;
            case 1:
                if (inside) input.erase(place);
                break;
            case 2:
                if (inside) *place ^= static_cast<std::uint8_t>(1u << below(8));
                break;
            case 3:
                if (inside) *place = static_cast<std::uint8_t>(below(256));
                break;
            case 4:
                input.erase(place, input.end());
                break;
            default:
                splice(input, at);
        }
    }

    /// Inserts a piece of another file.
    void splice(Bytes& input, std::size_t at) {
        const Bytes& other = corpus_[below(corpus_.size())];
        const std::size_t from = below(other.size() + 1);
        const std::size_t size = below(other.size() - from + 1);
        const auto first = other.begin() + static_cast<std::ptrdiff_t>(from);
        input.insert(input.begin() + static_cast<std::ptrdiff_t>(at), first,
                     first + static_cast<std::ptrdiff_t>(size));
    }

    const std::vector<Bytes>& corpus_;
    std::mt19937 random_{1};
};

/// In a block of exactly its size, so that a sanitizer reports every read beyond it.
void run(const Bytes& input) {
    const Bytes exact(input.begin(), input.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

bool readNumber(const char* text, std::size_t& number) {
    const char* end = text + std::strlen(text);
    const auto [last, failure] = std::from_chars(text, end, number);
    return failure == std::errc() && last == end;
}

}  // namespace

/// Read by the address sanitizer, where there is one. Recording each allocation's call stack takes
/// a sixth of the time of a replay when it is 30 calls deep, as it is by default.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "malloc_context_size=8";
}

int main(int argc, char** argv) {
    std::size_t mutations = 0;
    std::size_t part = 1;
    std::size_t parts = 1;
    const bool isWhole = argc == 3 && readNumber(argv[2], mutations);
    const bool isPart = argc == 5 && readNumber(argv[2], mutations) && readNumber(argv[3], part) &&
                        readNumber(argv[4], parts) && part >= 1 && part <= parts;
    if (!(isWhole || isPart) || !std::filesystem::is_directory(argv[1])) {
        std::fprintf(stderr, "usage: %s <corpus folder> <number of mutations> [<part> <parts>]\n",
                     argv[0]);
        return 2;
    }
    const std::vector<Bytes> corpus = readCorpus(argv[1]);
    if (corpus.empty()) {
        std::fprintf(stderr, "no files in %s\n", argv[1]);
        return 2;
    }
    Mutator mutator(corpus);
    std::size_t runs = 0;
    for (std::size_t i = 0; i < corpus.size() + mutations; ++i) {
        const Bytes input = i < corpus.size() ? corpus[i] : mutator.next();
        if (i % parts != part - 1) continue;
        run(input);
        ++runs;
    }
    std::printf("%zu inputs of %zu files and %zu mutations\n", runs, corpus.size(), mutations);
    return 0;
}
