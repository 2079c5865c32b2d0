#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QObject>
#include <QString>
#include <QUrl>
#include <functional>
#include <memory>

#include "ui/qt/own_documents.h"

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
// five redirects and none from https to http, and files of the program's own folders at once.
// Documents over 16 MiB are a problem, like those that cannot be reached. No cookies are kept.
class PageLoader : public QObject {
  Q_DECLARE_TR_FUNCTIONS(PageLoader)

 public:
  using Done = std::function<void(const LoadedDocument&)>;

  explicit PageLoader(OwnDocuments documents);
  ~PageLoader() override;
  PageLoader(const PageLoader&) = delete;
  PageLoader& operator=(const PageLoader&) = delete;

  // `done` runs once, a local file's before this returns; never after Stop.
  void Load(const QUrl& address, const Done& done);

  // Gives up all that is loading.
  void Stop();

  // Whether the address is a file in one of the program's own folders.
  [[nodiscard]] bool IsOwnFile(const QUrl& address) const;

 private:
  [[nodiscard]] LoadedDocument ReadFile(const QUrl& address) const;
  void Fetch(const QUrl& address, const Done& done);
  QNetworkAccessManager& Network();

  OwnDocuments documents_;
  std::unique_ptr<QNetworkAccessManager> network_;  // made when the first page is fetched
};

}  // namespace tallyo
