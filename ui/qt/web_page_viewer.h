#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QTextBrowser>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "ui/qt/page_loader.h"

namespace tallyo {

// Shows simple pages with their pictures. Links on the page's own host are followed here, all
// others by the program that the person uses for them. Scripts do not run.
class WebPageViewer : public QTextBrowser {
  Q_DECLARE_TR_FUNCTIONS(WebPageViewer)

 public:
  WebPageViewer(const OwnDocuments& documents, QWidget* parent);

  // Runs when another page is shown or loaded.
  std::function<void()> OnMoved;

  // An address, or the path of a file in the AppDir. The page is there some time later.
  void Open(const std::string& address);

  // Back to the page before, if any.
  void GoBack();
  [[nodiscard]] bool CanGoBack() const { return earlier_.size() > 1; }

  // Of the page that is shown, or of the one that is loading.
  [[nodiscard]] const QUrl& Address() const { return target_; }
  [[nodiscard]] bool IsLoading() const { return loading_; }

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  void Go(const QUrl& address);
  void Follow(const QUrl& link);
  void ShowDocument(const LoadedDocument& found);
  void ShowPage(const QUrl& address, const QString& html);
  [[nodiscard]] static QString TooMuch();
  void ShowProblem(const QUrl& address, const QString& why);
  void FetchPicture(const QUrl& address, const QUrl& name);
  void ShowPicture(const QByteArray& content, const QUrl& name);

  OwnDocuments documents_;
  PageLoader loader_;
  QUrl address_;  // of the page that is shown
  QUrl target_;
  bool loading_ = false;
  std::vector<QUrl> earlier_;        // the pages gone to, the present one last
  std::map<QUrl, QImage> pictures_;  // of the present page; null while they are loading
  qint64 pixelsLeft_ = 0;            // that its pictures may still have
};

}  // namespace tallyo
