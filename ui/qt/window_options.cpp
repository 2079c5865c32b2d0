#include "ui/qt/window_options.h"

#include <QCommandLineParser>
#include <QFile>
#include <ostream>

#include "platform/http_transfer.h"
#include "platform/transport_failure.h"
#include "settings/version.h"

namespace tallyo {
namespace {

constexpr int kWrongUsage = 2;
constexpr const char* kAppDir = "app-dir";
constexpr const char* kServiceUrl = "service-url";

void PrintHelp(const WindowDefaults& defaults, std::ostream& out) {
  out << "Tallyo: counting links, their counters and their history.\n"
         "Usage: tallyo [OPTIONS]\n"
         "\n"
         "Options:\n"
         "  --app-dir DIR      Folder that holds Tallyo's data ["
      << defaults.appDir.string()
      << "]\n"
         "  --service-url URL  Base address of the service ["
      << defaults.serviceUrl
      << "]\n"
         "  --version          Print the version and end\n"
         "  --help             Print this help and end\n";
}

WindowStart SayUsage(const std::string& why, std::ostream& err) {
  err << "tallyo: " << why << "\nSee 'tallyo --help'.\n";
  return {.options = {}, .exitStatus = kWrongUsage};
}

std::string WhatIsWrong(const QCommandLineParser& parser) {
  if (!parser.errorText().isEmpty()) {
    return parser.errorText().toStdString();
  }
  const QStringList others = parser.positionalArguments();
  return others.isEmpty() ? "" : "'" + others.front().toStdString() + "' is not expected here";
}

ProgramOptions OptionsOf(const QCommandLineParser& parser) {
  std::string url = parser.value(kServiceUrl).toStdString();
  if (!url.ends_with('/')) {
    url += '/';  // paths are appended without one
  }
  if (parser.isSet(kServiceUrl)) {
    CheckAddress(url);
  }
  const std::filesystem::path folder(QFile::encodeName(parser.value(kAppDir)).toStdString());
  return {.appDir = std::filesystem::absolute(folder).lexically_normal(), .serviceBaseUrl = url};
}

}  // namespace

WindowStart ReadOptions(int argc, char** argv, const WindowDefaults& defaults, std::ostream& out,
                        std::ostream& err) {
  QCommandLineParser parser;
  parser.addOption({kAppDir, "", "DIR", QString::fromStdString(defaults.appDir.string())});
  parser.addOption({kServiceUrl, "", "URL", QString::fromStdString(defaults.serviceUrl)});
  parser.addOption({{"h", "help"}, ""});
  parser.addOption(QCommandLineOption("version"));
  QStringList words;
  for (int i = 0; i < argc; ++i) {
    words += QFile::decodeName(argv[i]);
  }
  const bool read = parser.parse(words);
  if (read && parser.isSet("help")) {
    PrintHelp(defaults, out);
    return {};
  }
  if (read && parser.isSet("version")) {
    out << "tallyo " << Version() << '\n';
    return {};
  }
  const std::string wrong = WhatIsWrong(parser);
  if (!wrong.empty()) {
    return SayUsage(wrong, err);
  }
  try {
    return {.options = OptionsOf(parser), .exitStatus = 0};
  } catch (const TransportFailure& failure) {
    return SayUsage(std::string("--service-url: ") + failure.what(), err);
  } catch (const std::filesystem::filesystem_error& failure) {
    return SayUsage(std::string("--app-dir: ") + failure.what(), err);
  }
}

}  // namespace tallyo
