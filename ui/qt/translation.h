#pragma once

#include <QLocale>
#include <QTranslator>
#include <filesystem>
#include <vector>

namespace tallyo {

// The person's language for the texts that the window has besides the system's own, as long as this
// lives: from the first of the folders that holds tallyo_LANGUAGE.qm for one of the locale's
// languages. The toolkit's texts, such as the buttons of boxes, go with it where it has them. All
// is English where there is no such file, and for a person who prefers English to what there is.
class Translation {
 public:
  // To be made before the texts are asked for, beside the application and ending before it.
  Translation(const std::vector<std::filesystem::path>& folders, const QLocale& locale);

 private:
  bool Load(const std::vector<std::filesystem::path>& folders, const QString& language);
  void LoadToolkit(const QString& language);

  QTranslator own_;
  QTranslator toolkit_;
};

}  // namespace tallyo
