#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallyo {

// Whether a text can be the name of one file in a folder: not empty, not "." or "..", without "/",
// "\", NUL and other bytes below 0x20 or 0x7F, at most 255 bytes.
[[nodiscard]] bool IsFileName(std::string_view name);

// The disk, as the program uses it. All contents are bytes. Every failure is a RuntimeError.
class Files {
 public:
  virtual ~Files() = default;

  // Makes one folder, its parent being there. An existing folder is no failure.
  virtual void MakeFolder(const std::filesystem::path& folder) = 0;

  // Whether a regular file stands there.
  [[nodiscard]] virtual bool Exists(const std::filesystem::path& file) const = 0;

  // The whole file. A longer one than maxBytes is a failure.
  [[nodiscard]] virtual std::string Read(const std::filesystem::path& file,
                                         std::size_t maxBytes) const = 0;
  [[nodiscard]] std::string Read(const std::filesystem::path& file) const {
    return Read(file, std::size_t{1} << 30U);
  }

  // Writes the whole content to the work file (in the same file system), flushes it to disk, and
  // renames it over the file: whenever the program is killed, the file is its old or its new self.
  // The work file may remain where this fails.
  virtual void Replace(const std::filesystem::path& file, std::string_view content,
                       const std::filesystem::path& workFile) = 0;

  struct Replacement {
    std::filesystem::path file;
    std::string content;
    std::filesystem::path workFile;
  };

  // Replaces several files, each as Replace does with a work file of its own, but waits for the
  // disk once for all of them. One that fails keeps none of the others from being replaced. Which
  // were.
  virtual std::vector<bool> ReplaceAll(std::span<const Replacement> replacements);

  // Deletes a file that must be there.
  virtual void Delete(const std::filesystem::path& file) = 0;
};

}  // namespace tallyo
