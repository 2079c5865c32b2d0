#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QString>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <memory>

class QNetworkReply;

namespace tallyo {

// What came of loading an address.
struct LoadedDocument {
  QUrl address;  // where it was found in the end
  QByteArray body;
  QString type;     // "text/html; charset=utf-8"; empty where nobody said
  QString problem;  // why there is nothing to show, in plain words; empty: there is

  [[nodiscard]] bool Loaded() const { return problem.isEmpty(); }
};

// Loads documents for the web page viewer: over http and https without waiting, following at most
// five redirects and none from https to http, and files of one folder at once. Documents over
// 16 MiB are a problem, like those that cannot be reached. No cookies are kept.
class PageLoader : public QObject {
 public:
  using Done = std::function<void(const LoadedDocument&)>;

  explicit PageLoader(std::filesystem::path ownFolder);
  ~PageLoader() override;
  PageLoader(const PageLoader&) = delete;
  PageLoader& operator=(const PageLoader&) = delete;

  // `done` runs once, a local file's before this returns; never after Stop.
  void Load(const QUrl& address, const Done& done);

  // Gives up all that is loading.
  void Stop();

  // Whether the address is a file that lies, links resolved, in the own folder.
  [[nodiscard]] bool IsOwnFile(const QUrl& address) const;

 private:
  [[nodiscard]] LoadedDocument ReadFile(const QUrl& address) const;
  void Fetch(const QUrl& address, const Done& done);
  QNetworkAccessManager& Network();

  std::filesystem::path ownFolder_;
  std::unique_ptr<QNetworkAccessManager> network_;  // made when the first page is fetched
};

}  // namespace tallyo
