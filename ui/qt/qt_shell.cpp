#include "ui/qt/qt_shell.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace tallyo {

void QtShell::Open(const std::filesystem::path& document) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(document.c_str())));
}

}  // namespace tallyo
