#include "platform/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <map>
#include <memory>
#include <system_error>

#include "platform/file_descriptor.h"
#include "platform/file_failure.h"
#include "platform/shared_folder.h"
#include "platform/work_file.h"

namespace tallyo {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kFolderMode = 0755;

// The system would cut a path at a NUL byte and take another file.
bool HoldsNul(const fs::path& path) { return path.native().find('\0') != std::string::npos; }

bool CanNameFile(const fs::path& file) {
  return !HoldsNul(file) && IsFileName(file.filename().native());
}

void RequireFileName(const char* action, const fs::path& file) {
  if (!CanNameFile(file)) {
    FailWith(action, file, ENOENT);
  }
}

// It may have grown by the time it is read; 0 where nobody knows.
std::size_t SizeNow(const FileDescriptor& descriptor) {
  struct stat status {};
  return ::fstat(descriptor.Number(), &status) == 0 ? static_cast<std::size_t>(status.st_size) : 0;
}

void RequireFileNames(const fs::path& file, const fs::path& workFile) {
  RequireFileName("could not write", file);
  RequireFileName("could not write", workFile);
}

bool IsFlushed(const fs::path& folder) {
  try {
    FlushFolder(folder);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace

void PosixFiles::MakeFolder(const fs::path& folder) {
  const char* const action = "could not make the folder";
  if (HoldsNul(folder)) {
    FailWith(action, folder, ENOENT);
  }
  if (::mkdir(folder.c_str(), kFolderMode) == 0) {
    ShareFolder(folder);
    return;
  }
  const int error = errno;
  std::error_code ignored;
  if (error != EEXIST || !fs::is_directory(folder, ignored)) {
    FailWith(action, folder, error);
  }
}

bool PosixFiles::Exists(const fs::path& file) const {
  if (!CanNameFile(file)) {
    return false;
  }
  std::error_code failure;
  const fs::file_status status = fs::status(file, failure);
  if (status.type() == fs::file_type::none) {  // nobody knows: it may well be there
    FailWith("could not look for", file, failure.value());
  }
  return fs::is_regular_file(status);
}

std::string PosixFiles::Read(const fs::path& file, std::size_t maxBytes) const {
  const char* const action = "could not read";
  RequireFileName(action, file);
  const FileDescriptor descriptor = OpenAtOnce(file, O_RDONLY);
  RequireRegularFile(action, file, descriptor);
  // A byte more finds the end at once.
  std::string content(std::min(SizeNow(descriptor), maxBytes) + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    const ssize_t count =
        ::read(descriptor.Number(), content.data() + filled, content.size() - filled);
    if (count < 0 && errno != EINTR) {
      FailWith(action, file, errno);
    }
    filled += count > 0 ? static_cast<std::size_t>(count) : 0;
    if (filled > maxBytes) {
      FailWith(action, file, EFBIG);
    }
    if (count == 0) {
      content.resize(filled);
      return content;
    }
    if (filled == content.size()) {
      content.resize(2 * filled);
    }
  }
}

void PosixFiles::Replace(const fs::path& file, std::string_view content, const fs::path& workFile) {
  RequireFileNames(file, workFile);
  const WorkFile work(workFile, content);
  work.Flush();
  work.RenameTo(file);
  FlushFolder(file.parent_path());
}

// Each step is done for all files before the next one: by the first wait everything is on its way
// to the disk, and the later waits find most of it there.
std::vector<bool> PosixFiles::ReplaceAll(std::span<const Replacement> replacements) {
  std::vector<std::unique_ptr<WorkFile>> works(replacements.size());
  // Drops the files that a step fails with.
  const auto forAll = [&](const auto& step) {
    for (std::size_t i = 0; i < works.size(); ++i) {
      try {
        step(works[i], replacements[i]);
      } catch (const RuntimeError&) {
        works[i].reset();
      }
    }
  };
  forAll([](std::unique_ptr<WorkFile>& work, const Replacement& wanted) {
    RequireFileNames(wanted.file, wanted.workFile);
    work = std::make_unique<WorkFile>(wanted.workFile, wanted.content);
    work->BeginFlush();
  });
  forAll([](const std::unique_ptr<WorkFile>& work, const Replacement& /*wanted*/) {
    if (work) {
      work->Flush();
    }
  });
  std::map<fs::path, bool> folders;  // and whether their renames last
  forAll([&](const std::unique_ptr<WorkFile>& work, const Replacement& wanted) {
    if (work) {
      work->RenameTo(wanted.file);
      folders[wanted.file.parent_path()] = false;
    }
  });
  for (auto& [folder, lasts] : folders) {
    lasts = IsFlushed(folder);
  }
  std::vector<bool> done(works.size());
  for (std::size_t i = 0; i < works.size(); ++i) {
    done[i] = works[i] && folders[replacements[i].file.parent_path()];
  }
  return done;
}

void PosixFiles::Delete(const fs::path& file) {
  const char* const action = "could not delete";
  RequireFileName(action, file);
  if (::unlink(file.c_str()) != 0) {
    FailWith(action, file, errno);
  }
}

}  // namespace tallyo
