// The least that growth on every link needs: read each daily file, change it, write it anew, flush
// it and rename it over the old one; 64 files wait for the disk together.
// Usage: daily-floor YEARFOLDER MONTH COUNT

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "bench/made_month.h"
#include "bench/rounds.h"

namespace {

constexpr std::size_t kTogether = 64;

void Require(bool done, const std::string& file) {
  if (!done) {
    std::cerr << "daily-floor: " << file << " cannot be replaced\n";
    std::exit(1);
  }
}

std::string ReadAll(const std::string& file) {
  std::array<char, 65536> buffer{};
  const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  const ssize_t size = ::read(descriptor, buffer.data(), buffer.size());
  Require(size > 2, file);
  ::close(descriptor);
  return {buffer.data(), static_cast<std::size_t>(size)};
}

// The new content on its way to the disk.
int WriteWork(const std::string& work, const std::string& content) {
  const int descriptor = ::open(work.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  Require(
      ::write(descriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size()),
      work);
  ::sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
  return descriptor;
}

void ReplaceTogether(const std::string& folder, const std::string* first, std::size_t count) {
  std::array<int, kTogether> open{};
  for (std::size_t i = 0; i < count; ++i) {
    std::string content = ReadAll(first[i]);
    char& lastDigit = content[content.size() - 3];
    lastDigit = lastDigit == '9' ? '0' : static_cast<char>(lastDigit + 1);
    open[i] = WriteWork(folder + "/work-" + std::to_string(i), content);
  }
  for (std::size_t i = 0; i < count; ++i) {
    Require(::fsync(open[i]) == 0, first[i]);
    ::close(open[i]);
  }
  for (std::size_t i = 0; i < count; ++i) {
    const std::string work = folder + "/work-" + std::to_string(i);
    Require(std::rename(work.c_str(), first[i].c_str()) == 0, first[i]);
  }
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  Require(::fsync(descriptor) == 0, folder);
  ::close(descriptor);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "Usage: daily-floor YEARFOLDER MONTH COUNT\n";
    return 2;
  }
  const std::string folder = argv[1];
  std::vector<std::string> files;
  for (int i = 1; i <= std::atoi(argv[3]); ++i) {
    files.push_back(tallyo::bench::DailyFileOf(folder, i, argv[2]).string());
  }
  tallyo::bench::ServeRounds([&] {
    for (std::size_t i = 0; i < files.size(); i += kTogether) {
      ReplaceTogether(folder, &files[i], std::min(kTogether, files.size() - i));
    }
  });
}
