#include "ui/qt/web_page_viewer.h"

#include <QBuffer>
#include <QDesktopServices>
#include <QFile>
#include <QImageReader>
#include <QStringDecoder>
#include <QTextDocument>
#include <algorithm>
#include <array>

#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

constexpr std::size_t kMostPictures = 64;                // on one page
constexpr qint64 kMostPixels = 32'000'000;               // in all of them
constexpr qsizetype kMostBytes = qsizetype{256} << 10U;  // of a page that is laid out at once
constexpr int kDeepest = 200;                            // elements of it within each other
constexpr std::size_t kMostEarlierPages = 50;

QString TextOf(const LoadedDocument& document) {
  const QString charset = document.type.section("charset=", 1, 1).section(';', 0, 0).remove('"');
  QStringDecoder decoder;
  if (!charset.isEmpty()) {  // to look for a name that is none loads a large library
    decoder = QStringDecoder(charset.trimmed().toLatin1().constData());
  }
  if (!decoder.isValid()) {
    decoder = QStringDecoder::decoderForHtml(document.body);
  }
  return decoder.decode(document.body);
}

qint64 PixelsOf(const QSize& size) { return qint64{size.width()} * size.height(); }

QStringView NameAt(const QString& html, qsizetype begin) {
  qsizetype end = begin;
  while (end < html.size() && html[end].isLetterOrNumber()) {
    ++end;
  }
  return QStringView(html).mid(begin, end - begin);
}

bool NeedsNoEnd(QStringView element) {
  constexpr std::array kNames = {"p",  "li",  "td", "th",   "tr",   "dd",    "dt",
                                 "br", "img", "hr", "meta", "link", "input", "col"};
  return std::ranges::any_of(kNames, [element](const char* name) {
    return element.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
  });
}

// How many elements stand within each other at most, those that need no end tag left out. Laying
// out takes the longer the deeper they are, far beyond what the length of the page says.
int DepthOf(const QString& html) {
  int depth = 0;
  int deepest = 0;
  for (qsizetype at = html.indexOf('<'); at >= 0; at = html.indexOf('<', at + 1)) {
    const bool ends = html.size() > at + 1 && html[at + 1] == '/';
    const QStringView name = NameAt(html, at + (ends ? 2 : 1));
    if (!name.isEmpty() && !NeedsNoEnd(name)) {
      depth = std::max(0, depth + (ends ? -1 : 1));
      deepest = std::max(deepest, depth);
    }
  }
  return deepest;
}

bool IsPage(const QString& type) {
  return type.isEmpty() || type.startsWith("text/html") || type.startsWith("application/xhtml");
}

// Pages bring colours made for a white ground; what they leave open must go with them.
QPalette PaperPalette(QPalette palette) {
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Link, QColor(0, 70, 170));
  palette.setColor(QPalette::LinkVisited, QColor(85, 26, 139));
  return palette;
}

}  // namespace

WebPageViewer::WebPageViewer(const OwnDocuments& documents, QWidget* parent)
    : QTextBrowser(parent), documents_(documents), loader_(documents) {
  setOpenLinks(false);
  setPalette(PaperPalette(palette()));
  document()->setDocumentMargin(16);
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { Follow(link); });
}

void WebPageViewer::Open(const std::string& address) {
  if (address.starts_with('/')) {
    Go(QUrl::fromLocalFile(QFile::decodeName(documents_.Find(address).c_str())));
  } else {
    Go(QUrl(Shown(address), QUrl::TolerantMode));
  }
}

void WebPageViewer::Go(const QUrl& address) {
  loader_.Stop();
  target_ = address;
  loading_ = true;
  if (earlier_.empty() || earlier_.back() != address) {
    earlier_.push_back(address);
  }
  if (earlier_.size() > kMostEarlierPages) {
    earlier_.erase(earlier_.begin());
  }
  loader_.Load(address, [this](const LoadedDocument& document) { ShowDocument(document); });
  if (OnMoved) {
    OnMoved();
  }
}

void WebPageViewer::GoBack() {
  if (CanGoBack()) {
    earlier_.pop_back();
    const QUrl last = earlier_.back();
    Go(last);
  }
}

void WebPageViewer::ShowDocument(const LoadedDocument& found) {
  loading_ = false;
  address_ = found.address;
  target_ = found.address;
  document()->clear();  // with the pictures that it was given
  pictures_.clear();
  pixelsLeft_ = kMostPixels;
  if (!found.Loaded()) {
    ShowProblem(found.address, found.problem);
  } else if (found.body.size() > kMostBytes) {
    ShowProblem(found.address, TooMuch());
  } else if (IsPage(found.type)) {
    ShowPage(found.address, TextOf(found));
  } else if (found.type.startsWith("text/")) {
    setPlainText(TextOf(found));
  } else {
    ShowProblem(found.address, tr("It is no page, but \"%1\".").arg(found.type));
  }
  if (address_.hasFragment()) {
    scrollToAnchor(address_.fragment());
  }
  if (OnMoved) {
    OnMoved();
  }
}

void WebPageViewer::ShowPage(const QUrl& address, const QString& html) {
  if (DepthOf(html) > kDeepest) {
    ShowProblem(address, TooMuch());
  } else {
    setHtml(html);
  }
}

QString WebPageViewer::TooMuch() { return tr("It is too long or too intricate to be shown here."); }

void WebPageViewer::ShowProblem(const QUrl& address, const QString& why) {
  const QString shown = address.isLocalFile() ? address.toLocalFile() : address.toString();
  setHtml("<h2>" + tr("This page cannot be shown").toHtmlEscaped() + "</h2><p>" +
          Breakable(shown).toHtmlEscaped() + "</p><p>" + Breakable(why).toHtmlEscaped() + "</p>");
}

void WebPageViewer::Follow(const QUrl& link) {
  const QUrl target = address_.resolved(link);
  const bool web = target.scheme() == "http" || target.scheme() == "https";
  if (target.matches(address_, QUrl::RemoveFragment) && target.hasFragment()) {
    scrollToAnchor(target.fragment());
  } else if (web && target.host() == address_.host() && target.port() == address_.port()) {
    Go(target);
  } else if (web || target.scheme() == "mailto") {
    QDesktopServices::openUrl(target);
  } else if (address_.isLocalFile() && loader_.IsOwnFile(target)) {
    if (target.path().endsWith(".sht")) {
      Go(target);
    } else {
      QDesktopServices::openUrl(target);
    }
  }
}

// Pictures come later; until then, and instead of everything else that a page asks for, there is
// nothing.
QVariant WebPageViewer::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource || name.scheme() == "data") {
    return name.scheme() == "data" ? QTextBrowser::loadResource(type, name) : QVariant();
  }
  const QUrl address = address_.resolved(name);
  const auto found = pictures_.find(name);
  if (found != pictures_.end()) {
    return found->second;
  }
  if (pictures_.size() < kMostPictures && (!address.isLocalFile() || address_.isLocalFile())) {
    pictures_[name] = QImage(1, 1, QImage::Format_ARGB32);
    // Not in the midst of laying out the page that asks.
    QMetaObject::invokeMethod(
        this, [this, address, name] { FetchPicture(address, name); }, Qt::QueuedConnection);
  }
  return pictures_[name];
}

void WebPageViewer::FetchPicture(const QUrl& address, const QUrl& name) {
  if (!pictures_.contains(name)) {
    return;  // another page has come meanwhile
  }
  loader_.Load(address, [this, name](const LoadedDocument& found) {
    if (found.Loaded()) {
      ShowPicture(found.body, name);
    }
  });
}

void WebPageViewer::ShowPicture(const QByteArray& content, const QUrl& name) {
  QBuffer buffer;
  buffer.setData(content);
  QImageReader reader(&buffer);
  if (PixelsOf(reader.size()) > pixelsLeft_) {
    return;
  }
  const QImage picture = reader.read();
  const qint64 pixels = PixelsOf(picture.size());
  if (pixels > 0 && pixels <= pixelsLeft_) {
    pixelsLeft_ -= pixels;
    pictures_[name] = picture;
    document()->addResource(QTextDocument::ImageResource, name, picture);
    document()->markContentsDirty(0, document()->characterCount());
  }
}

}  // namespace tallyo
