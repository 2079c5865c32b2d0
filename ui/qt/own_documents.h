#pragma once

#include <filesystem>

namespace tallyo {

// Where the program's own documents lie: the start page and the manual. A person's copy in the
// AppDir comes first; what is missing there is taken from the folder that was installed.
class OwnDocuments {
 public:
  // installed: may be empty, for none.
  explicit OwnDocuments(std::filesystem::path appDir, std::filesystem::path installed = {});

  // The file to open where the program names this one.
  [[nodiscard]] std::filesystem::path Find(const std::filesystem::path& named) const;

  // Whether the file lies, links resolved, in one of the two folders.
  [[nodiscard]] bool Hold(const std::filesystem::path& file) const;

 private:
  std::filesystem::path appDir_;
  std::filesystem::path installed_;
};

}  // namespace tallyo
