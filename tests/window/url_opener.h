#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QString>
#include <QUrl>
#include <utility>

namespace tallyo::test {

// Stands for the program that a desktop opens addresses of one scheme with.
class UrlOpener : public QObject {
  Q_OBJECT

 public:
  explicit UrlOpener(QString scheme) : scheme_(std::move(scheme)) {
    QDesktopServices::setUrlHandler(scheme_, this, "Open");
  }
  ~UrlOpener() override { QDesktopServices::unsetUrlHandler(scheme_); }

  // What was opened last, if anything since the last call.
  [[nodiscard]] QUrl TakeLast() { return std::exchange(last_, QUrl()); }

 public slots:
  void Open(const QUrl& address) { last_ = address; }

 private:
  QString scheme_;
  QUrl last_;
};

}  // namespace tallyo::test
