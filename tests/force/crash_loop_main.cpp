// tallyo-crash-loop [--rounds N] [--seed N] [--folder DIR]: kills Tallyo N times (50) at moments
// that follow from the seed (another one each time), and ends with 1 at the first loss. The folder
// must be empty; without one it works in a folder that disappears.
#include <filesystem>
#include <iostream>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "tests/force/crash_loop.h"
#include "tests/support/temp_folder.h"

namespace {

using tallyo::force::CrashLoop;

struct Options {
  std::uint64_t rounds = 50;
  std::uint64_t seed = std::random_device()();
  std::filesystem::path folder;
};

// Nothing where a word is unknown or a number is none.
std::optional<Options> ReadOptions(int count, char** words) {
  Options options;
  for (int i = 1; i < count; i += 2) {
    const std::string_view word = words[i];
    const std::string value = i + 1 < count ? words[i + 1] : "";
    const bool isNumber = !value.empty() && value.size() < 19 &&
                          value.find_first_not_of("0123456789") == std::string::npos;
    if (word == "--folder" && !value.empty()) {
      options.folder = value;
    } else if ((word == "--rounds" || word == "--seed") && isNumber) {
      (word == "--seed" ? options.seed : options.rounds) = std::stoull(value);
    } else {
      return std::nullopt;
    }
  }
  return options;
}

int KillOverAndOver(const Options& options) {
  std::optional<CrashLoop> loop;
  std::uint64_t round = 0;
  const tallyo::test::TempFolder disappearing;
  try {
    loop.emplace(options.folder.empty() ? disappearing.Path() : options.folder, options.seed);
    while (round < options.rounds) loop->Round(++round);
  } catch (const std::exception& loss) {
    std::cerr << "seed " << options.seed << ", round " << round << ", "
              << (loop ? loop->Doing() : "before the first round") << ": " << loss.what() << '\n';
    return 1;
  }
  std::cout << loop->Figures() << options.rounds
            << " rounds, nothing lost, nothing counted twice\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::optional<Options> options = ReadOptions(argc, argv);
  if (!options) {
    std::cerr << "tallyo-crash-loop [--rounds N] [--seed N] [--folder DIR]\n";
    return 2;
  }
  std::cout << "seed " << options->seed << std::endl;
  return KillOverAndOver(*options);
}
