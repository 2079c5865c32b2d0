#include "ui/qt/shown_string.h"

#include "text/shown_text.h"

namespace tallyo {
namespace {

constexpr qsizetype kLongestWord = 60;
constexpr qsizetype kLongestToolTip = 1500;
constexpr QChar kZeroWidthSpace(0x200B);
constexpr QChar kEllipsis(0x2026);

}  // namespace

QString Shown(std::string_view bytes) {
  const std::string text = ShownText(bytes);
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string Typed(const QString& text) { return text.toStdString(); }

QString WithoutAccessKeys(QString text) { return text.replace('&', "&&"); }

QString SpokenCaption(std::string_view caption) { return Shown(caption).remove('&'); }

QString ToolTipOf(const QString& text) {
  if (text.isEmpty()) {
    return {};
  }
  const QString shown =
      text.size() > kLongestToolTip ? text.left(kLongestToolTip) + kEllipsis : text;
  return "<qt>" + Breakable(shown).toHtmlEscaped().replace('\n', "<br>") + "</qt>";
}

QString Breakable(const QString& text) {
  QString broken;
  qsizetype wordLength = 0;
  for (const QChar c : text) {
    wordLength = c.isSpace() ? 0 : wordLength + 1;
    if (wordLength > kLongestWord && !c.isLowSurrogate() && !c.isMark()) {
      broken += kZeroWidthSpace;
      wordLength = 1;
    }
    broken += c;
  }
  return broken;
}

}  // namespace tallyo
