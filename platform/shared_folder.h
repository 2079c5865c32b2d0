#pragma once

#include <filesystem>

namespace tallyo {

// A folder may be there for several persons: its group, or everybody, may write in it, and no
// sticky bit keeps their files apart. What one of them makes in it the others may write too,
// whatever the umask says. What is made in any other folder stays as it is. Neither function fails:
// where permissions cannot be changed, they are not.

// Gives the open file, which was made at `file`, the permissions of those who may write in its
// folder.
void ShareFile(int descriptor, const std::filesystem::path& file);

// The same for a folder that was made.
void ShareFolder(const std::filesystem::path& folder);

}  // namespace tallyo
