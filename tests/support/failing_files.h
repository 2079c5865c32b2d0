#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "platform/files.h"
#include "tests/support/fault_plan.h"
#include "text/runtime_error.h"

namespace tallyo::test {

// What a call that fails leaves behind.
enum class FileFault {
  None,      // no call fails
  Refused,   // nothing: no right, no free descriptor, no such thing
  CutShort,  // a work file with the first half of the content: the disk is full
  Unsure,    // all of it done, but nobody knows whether it will last: an error of the disk
};

// Other files, some calls to which fail.
class FailingFiles final : public Files {
 public:
  FailingFiles(Files& real, FaultPlan& plan, FileFault fault)
      : real_(real), plan_(plan), fault_(fault) {}

  void MakeFolder(const std::filesystem::path& folder) override {
    Run([&] { real_.MakeFolder(folder); });
  }
  [[nodiscard]] bool Exists(const std::filesystem::path& file) const override {
    if (Strikes()) throw RuntimeError("could not look for it");
    return real_.Exists(file);
  }
  using Files::Read;
  [[nodiscard]] std::string Read(const std::filesystem::path& file,
                                 std::size_t maxBytes) const override {
    if (Strikes()) throw RuntimeError("could not read");
    return real_.Read(file, maxBytes);
  }
  void Replace(const std::filesystem::path& file, std::string_view content,
               const std::filesystem::path& workFile) override {
    if (fault_ != FileFault::CutShort) {
      Run([&] { real_.Replace(file, content, workFile); });
    } else if (Strikes()) {
      std::ofstream(workFile, std::ios::binary) << content.substr(0, content.size() / 2);
      throw RuntimeError("no space left");
    } else {
      real_.Replace(file, content, workFile);
    }
  }
  std::vector<bool> ReplaceAll(std::span<const Replacement> replacements) override {
    return fault_ == FileFault::None ? real_.ReplaceAll(replacements)
                                     : Files::ReplaceAll(replacements);
  }
  void Delete(const std::filesystem::path& file) override {
    Run([&] { real_.Delete(file); });
  }

 private:
  [[nodiscard]] bool Strikes() const { return fault_ != FileFault::None && plan_.Strikes(); }

  template <typename Work>
  void Run(const Work& work) {
    const bool strikes = Strikes();
    if (!strikes || fault_ == FileFault::Unsure) work();
    if (strikes) throw RuntimeError("the disk failed");
  }

  Files& real_;
  FaultPlan& plan_;
  FileFault fault_;
};

}  // namespace tallyo::test
