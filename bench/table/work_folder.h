#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace tallyo::bench {

// A folder among the temporary files that goes with all that is in it.
class WorkFolder {
 public:
  WorkFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tallyo-bench-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
      throw std::system_error(errno, std::generic_category(), pattern);
    }
    path_ = pattern;
  }
  ~WorkFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace tallyo::bench
