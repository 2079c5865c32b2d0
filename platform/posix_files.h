#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace tallyo {

// The real disk. A path whose last part is no file name (see IsFileName) names a missing file. The
// folders on the way to a file may be links; a file to read may be one too, a work file may not.
class PosixFiles final : public Files {
 public:
  void MakeFolder(const std::filesystem::path& folder) override;

  // Whether a regular file stands there; a folder is none.
  [[nodiscard]] bool Exists(const std::filesystem::path& file) const override;

  // Fails for what is no regular file, too.
  using Files::Read;
  [[nodiscard]] std::string Read(const std::filesystem::path& file,
                                 std::size_t maxBytes) const override;

  // New files are made with mode 0644, less the umask of the process, and with the permissions that
  // their folder wants (platform/shared_folder.h).
  void Replace(const std::filesystem::path& file, std::string_view content,
               const std::filesystem::path& workFile) override;

  std::vector<bool> ReplaceAll(std::span<const Replacement> replacements) override;

  void Delete(const std::filesystem::path& file) override;
};

}  // namespace tallyo
