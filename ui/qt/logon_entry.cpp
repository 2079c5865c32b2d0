#include "ui/qt/logon_entry.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <utility>

namespace tallyo {
namespace {

// One word of an Exec line: quoted, and its special characters escaped, first for the line and then
// for the value that it is.
std::string ExecWord(const std::string& word) {
  std::string quoted = "\"";
  for (const char c : word) {
    if (c == '"' || c == '`' || c == '$') {
      quoted += R"(\\)";
    } else if (c == '\\') {
      quoted += R"(\\\)";
    } else if (c == '%') {
      quoted += '%';
    } else if (c == '\n') {
      quoted += R"(\n)";
      continue;
    }
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

LogonEntry::LogonEntry(std::vector<std::string> command) : command_(std::move(command)) {}

void LogonEntry::Set(bool run) const {
  const QString name = QFile::decodeName(File().c_str());
  if (!run) {
    QFile::remove(name);
    return;
  }
  const QByteArray text = QByteArray::fromStdString(Text());
  QSaveFile file(name);
  if (QDir().mkpath(QFile::decodeName(File().parent_path().c_str())) &&
      file.open(QIODevice::WriteOnly) && file.write(text) == text.size()) {
    file.commit();
  }
}

std::string LogonEntry::Text() const {
  std::string line;
  for (const std::string& word : command_) {
    line += (line.empty() ? "" : " ") + ExecWord(word);
  }
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Name=Tallyo\n"
         "Comment=Counts the visitors of your links\n"
         "Icon=tallyo\n"
         "Exec=" +
         line +
         "\n"
         "StartupWMClass=tallyo\n"
         "Terminal=false\n";
}

std::filesystem::path LogonEntry::File() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::ConfigLocation);
  return std::filesystem::path(QFile::encodeName(folder).toStdString()) / "autostart" /
         "tallyo.desktop";
}

}  // namespace tallyo
