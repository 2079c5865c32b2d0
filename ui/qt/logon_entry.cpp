#include "ui/qt/logon_entry.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <utility>

namespace tallyo {
namespace {

constexpr qint64 kMostBytes = qint64{64} << 10U;  // more than any entry has

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
  if (IsThere()) {
    return;
  }
  const QByteArray text = QByteArray::fromStdString(Text());
  QSaveFile file(name);
  if (QDir().mkpath(QFile::decodeName(File().parent_path().c_str())) &&
      file.open(QIODevice::WriteOnly) && file.write(text) == text.size()) {
    file.commit();
  }
}

// An entry with the same command stays as it is: desktops note in it that the person switched it
// off.
bool LogonEntry::IsThere() const {
  QFile file(QFile::decodeName(File().c_str()));
  return file.open(QIODevice::ReadOnly) &&
         file.read(kMostBytes).contains(QByteArray::fromStdString(CommandLine()));
}

std::string LogonEntry::CommandLine() const {
  std::string line;
  for (const std::string& word : command_) {
    line += (line.empty() ? "Exec=" : " ") + ExecWord(word);
  }
  return line + "\n";
}

std::string LogonEntry::Text() const {
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Name=Tallyo\n"
         "Comment=Counts the visitors of your links\n"
         "Icon=tallyo\n" +
         CommandLine() +
         "StartupWMClass=tallyo\n"
         "Terminal=false\n";
}

std::filesystem::path LogonEntry::File() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::ConfigLocation);
  return std::filesystem::path(QFile::encodeName(folder).toStdString()) / "autostart" /
         "tallyo.desktop";
}

}  // namespace tallyo
