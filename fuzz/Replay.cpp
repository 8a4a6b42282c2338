// Runs a fuzz target without a fuzzer, with any compiler:
//   replay_X ROUNDS [FILE|DIRECTORY...]  the seeds, then the files, then ROUNDS changed seeds
//   replay_X --seeds DIRECTORY           writes the seeds there, for a fuzzer to begin with

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "Target.h"
#include "basic/Files.h"

namespace {

using namespace quarnel02;
namespace fs = std::filesystem;

void RunInput(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

int WriteSeeds(const fs::path& directory) {
    fs::create_directories(directory);
    std::size_t number = 0;
    for (const std::string& seed : fuzz::Seeds()) {
        WriteFile(directory / ("seed-" + std::to_string(number++)), seed);
    }
    return 0;
}

/// Makes a few changes of the kinds that find most: a byte, a piece that goes, comes twice or comes
/// from another seed.
class Mutator {
  public:
    explicit Mutator(const std::vector<std::string>& seeds) : m_seeds(seeds) {}

    std::string Next() {
        std::string input = AnySeed();
        for (std::size_t changes = 1 + Below(4); changes > 0; --changes) {
            Change(input);
        }
        return input;
    }

  private:
    std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : m_random() % limit; }
    const std::string& AnySeed() { return m_seeds[Below(m_seeds.size())]; }

    void Change(std::string& input) {
        constexpr std::size_t longest_piece = 64;
        constexpr std::size_t kinds = 5;
        const std::size_t at = Below(input.size());
        const std::size_t length = std::min(Below(longest_piece), input.size() - at);
        switch (Below(kinds)) {
            case 0:
                input.erase(at, length);
                break;
            case 1:
                input.insert(at, input.substr(at, length));
                break;
            case 2: {
                const std::string& other = AnySeed();
                input.insert(at, other, Below(other.size()), length);
                break;
            }
            default:
                input.resize(std::max<std::size_t>(input.size(), 1));
                input[at] = static_cast<char>(m_random());
        }
    }

    const std::vector<std::string>& m_seeds;
    std::mt19937 m_random{1};  // the same inputs each time
};

std::vector<std::string> FilesOf(int count, char** names) {
    std::vector<std::string> contents;
    for (int i = 0; i < count; ++i) {
        if (fs::is_regular_file(names[i])) {
            contents.push_back(ReadFile(names[i]));
            continue;
        }
        std::error_code ignored;  // a target without findings has no directory
        for (const auto& entry : fs::directory_iterator(names[i], ignored)) {
            contents.push_back(ReadFile(entry.path()));
        }
    }
    return contents;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 2 && words[0] == "--seeds") {
        return WriteSeeds(words[1]);
    }
    std::vector<std::string> inputs = fuzz::Seeds();
    for (std::string& content : FilesOf(std::max(argc - 2, 0), argv + 2)) {
        inputs.push_back(std::move(content));
    }
    std::for_each(inputs.begin(), inputs.end(), RunInput);
    const int rounds = words.empty() ? 0 : std::stoi(words[0]);
    Mutator mutator(inputs);
    for (int round = 0; round < rounds; ++round) {
        RunInput(mutator.Next());
    }
    std::cout << inputs.size() + static_cast<std::size_t>(rounds) << " inputs\n";
    return 0;
}
