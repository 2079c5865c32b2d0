#pragma once

#include <filesystem>
#include <string_view>

#include "platform/file_descriptor.h"

namespace tallyo {

// The new content of a file on its way to the disk, under a name of its own. All failures are
// RuntimeErrors; the work file then remains.
class WorkFile {
 public:
  // Makes the file or empties it, and writes the whole content. What stands there must be a regular
  // file or nothing. New files are made with mode 0644, less the umask of the process, and with the
  // permissions that their folder wants.
  WorkFile(const std::filesystem::path& name, std::string_view content);

  // Has the system begin with writing to the disk, so that the flushes of several files take little
  // longer than one.
  void BeginFlush() const;

  // Waits until the content is on the disk.
  void Flush() const;

  // Takes the place of the other file, for readers at once, for good with the next FlushFolder.
  void RenameTo(const std::filesystem::path& file) const;

 private:
  std::filesystem::path name_;
  FileDescriptor descriptor_;
};

// Makes the renames in a folder last. Throws RuntimeError.
void FlushFolder(const std::filesystem::path& folder);

// Opens a file without waiting for the other end of a FIFO. flags: those of open(2).
[[nodiscard]] FileDescriptor OpenAtOnce(const std::filesystem::path& file, int flags);

// Throws RuntimeError, with `action`, unless an open succeeded, and with a regular file.
void RequireRegularFile(const char* action, const std::filesystem::path& file,
                        const FileDescriptor& descriptor);

}  // namespace tallyo
