#include "ui/qt/qt_shell.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace tallyo {

void QtShell::Open(const std::filesystem::path& document) {
  const std::filesystem::path file = documents_.Find(document);
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(file.c_str())));
}

}  // namespace tallyo
