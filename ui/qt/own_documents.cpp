#include "ui/qt/own_documents.h"

#include <system_error>
#include <utility>

namespace tallyo {
namespace {

bool LiesIn(const std::filesystem::path& folder, const std::filesystem::path& file) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::weakly_canonical(file, error);
  if (error) {
    return false;
  }
  const std::string inFolder =
      whole.lexically_relative(std::filesystem::weakly_canonical(folder, error)).string();
  return !error && !inFolder.empty() && inFolder != "." && !inFolder.starts_with("..");
}

}  // namespace

OwnDocuments::OwnDocuments(std::filesystem::path appDir, std::filesystem::path installed)
    : appDir_(std::move(appDir)), installed_(std::move(installed)) {}

std::filesystem::path OwnDocuments::Find(const std::filesystem::path& named) const {
  std::error_code error;
  if (named != appDir_ / named.filename() || installed_.empty() ||
      std::filesystem::exists(named, error)) {
    return named;
  }
  std::filesystem::path other = installed_ / named.filename();
  return std::filesystem::exists(other, error) ? other : named;
}

bool OwnDocuments::Hold(const std::filesystem::path& file) const {
  return LiesIn(appDir_, file) || (!installed_.empty() && LiesIn(installed_, file));
}

}  // namespace tallyo
