#include "ui/qt/translation.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>

namespace tallyo {
namespace {

// The languages that the person reads, the best first, as files are named: "pt_BR", "pt". The
// locale itself may leave out the second, or put another before the first.
QStringList Languages(const QLocale& locale) {
  QStringList languages;
  QString family;  // of the language before
  for (QString language : locale.uiLanguages()) {
    const QString now = language.section('-', 0, 0);
    if (now != family && !family.isEmpty()) {
      languages += family;
    }
    family = now;
    languages += language.replace('-', '_');
  }
  return languages + QStringList(family);
}

}  // namespace

Translation::Translation(const std::vector<std::filesystem::path>& folders, const QLocale& locale) {
  for (const QString& language : Languages(locale)) {
    if (Load(folders, language)) {
      QCoreApplication::installTranslator(&own_);
      LoadToolkit(language);
      return;
    }
    if (language == "en") {
      return;  // the texts are English as they stand
    }
  }
}

// A file for exactly this language: the loader itself would take one for a shorter name as well.
bool Translation::Load(const std::vector<std::filesystem::path>& folders, const QString& language) {
  for (const std::filesystem::path& folder : folders) {
    const QString name =
        QFile::decodeName(folder.c_str()) + "/translations/tallyo_" + language + ".qm";
    if (QFile::exists(name) && own_.load(name)) {
      return true;
    }
  }
  return false;
}

void Translation::LoadToolkit(const QString& language) {
  if (toolkit_.load("qtbase_" + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&toolkit_);
  }
}

}  // namespace tallyo
