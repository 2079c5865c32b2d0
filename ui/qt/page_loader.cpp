#include "ui/qt/page_loader.h"

#include <QFile>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <utility>

#include "settings/version.h"

namespace tallyo {
namespace {

constexpr qint64 kMostBytes = qint64{16} << 20U;
constexpr int kMostRedirects = 5;
constexpr int kTimeoutMilliseconds = 60000;

QNetworkRequest RequestFor(const QUrl& address) {
  QNetworkRequest request(address);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(kMostRedirects);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setHeader(QNetworkRequest::UserAgentHeader, QString::fromStdString(UserAgent()));
  request.setTransferTimeout(kTimeoutMilliseconds);
  return request;
}

// A page that says what went wrong is a page too; one that was cut short or never came is not.
bool IsWhole(const QNetworkReply& reply, const QByteArray& body) {
  switch (reply.error()) {
    case QNetworkReply::NoError:
      return true;
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::OperationCanceledError:
      return false;
    default:
      return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid() && !body.isEmpty();
  }
}

LoadedDocument DocumentOf(QNetworkReply& reply) {
  LoadedDocument document{
      .address = reply.url(),
      .body = reply.readAll(),
      .type = reply.header(QNetworkRequest::ContentTypeHeader).toString().toLower(),
      .problem = ""};
  if (reply.property("tooLong").toBool()) {
    document.problem = PageLoader::tr("It is longer than 16 MiB.");
  } else if (!IsWhole(reply, document.body)) {
    document.problem = reply.errorString();
  }
  return document;
}

}  // namespace

PageLoader::PageLoader(OwnDocuments documents) : documents_(std::move(documents)) {}

PageLoader::~PageLoader() { Stop(); }

void PageLoader::Load(const QUrl& address, const Done& done) {
  if (address.isLocalFile()) {
    done(ReadFile(address));
  } else if (address.scheme() == "http" || address.scheme() == "https") {
    Fetch(address, done);
  } else {
    done({.address = address, .body = {}, .type = {}, .problem = tr("It is no web address.")});
  }
}

void PageLoader::Stop() {
  if (network_ == nullptr) {
    return;
  }
  for (QNetworkReply* const reply : network_->findChildren<QNetworkReply*>()) {
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
  }
}

bool PageLoader::IsOwnFile(const QUrl& address) const {
  return address.isLocalFile() &&
         documents_.Hold(QFile::encodeName(address.toLocalFile()).toStdString());
}

LoadedDocument PageLoader::ReadFile(const QUrl& address) const {
  LoadedDocument document{.address = address, .body = {}, .type = {}, .problem = ""};
  QFile file(address.toLocalFile());
  if (!IsOwnFile(address)) {
    document.problem = tr("It lies outside Tallyo's own folder.");
  } else if (!file.open(QIODevice::ReadOnly)) {
    document.problem = file.errorString();
  } else if (file.size() > kMostBytes) {
    document.problem = PageLoader::tr("It is longer than 16 MiB.");
  } else {
    document.body = file.read(kMostBytes);
  }
  return document;
}

void PageLoader::Fetch(const QUrl& address, const Done& done) {
  QNetworkReply* const reply = Network().get(RequestFor(address));
  connect(reply, &QNetworkReply::downloadProgress, this, [reply](qint64 received) {
    if (received > kMostBytes) {
      reply->setProperty("tooLong", true);
      reply->abort();
    }
  });
  connect(reply, &QNetworkReply::finished, this, [reply, done] {
    reply->deleteLater();
    done(DocumentOf(*reply));
  });
}

QNetworkAccessManager& PageLoader::Network() {
  if (network_ == nullptr) {
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    network_ = std::make_unique<QNetworkAccessManager>();
  }
  return *network_;
}

}  // namespace tallyo
