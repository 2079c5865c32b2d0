// tallyo-crash-loop [--rounds N] [--seed N] [--folder DIR]: kills Tallyo N times (50) at moments
// that follow from the seed (another one each time), and ends with 1 at the first loss. The folder
// must be empty; without one it works in a folder that disappears.
#include <charconv>
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

std::optional<std::uint64_t> NumberOf(std::string_view text) {
  std::uint64_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = read.ec == std::errc() && read.ptr == text.data() + text.size();
  return whole ? std::optional(number) : std::nullopt;
}

std::optional<Options> ReadOptions(int count, char** words) {
  Options options;
  if (count % 2 == 0) return std::nullopt;
  for (int i = 1; i < count; i += 2) {
    const std::string_view word = words[i];
    const std::optional<std::uint64_t> number = NumberOf(words[i + 1]);
    if (word == "--folder") {
      options.folder = words[i + 1];
    } else if ((word == "--rounds" || word == "--seed") && number) {
      (word == "--seed" ? options.seed : options.rounds) = *number;
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
