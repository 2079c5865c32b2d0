#include "resources/manual/pdf_outline.h"

#include <QList>
#include <QRegularExpression>
#include <stdexcept>

namespace tallyo {
namespace {

[[noreturn]] void Fail(const char* what) {
  throw std::runtime_error(std::string("no PDF as expected: ") + what);
}

// The number behind the last occurrence of a name.
int NumberBehind(const QByteArray& pdf, const QByteArray& name) {
  const qsizetype at = pdf.lastIndexOf(name);
  if (at < 0) {
    Fail(name.constData());
  }
  const QByteArray rest = pdf.mid(at + name.size(), 24).trimmed();
  qsizetype digits = 0;
  while (digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9') {
    ++digits;
  }
  return rest.left(digits).toInt();
}

// What stands between "<<" and ">>" of an object without inner dictionaries.
QByteArray DictionaryOf(const QByteArray& pdf, int object) {
  const qsizetype at = pdf.indexOf('\n' + QByteArray::number(object) + " 0 obj");
  const qsizetype begin = at < 0 ? at : pdf.indexOf("<<", at);
  const qsizetype end = begin < 0 ? begin : pdf.indexOf(">>", begin);
  if (end < 0) {
    Fail("an object is missing");
  }
  return pdf.mid(begin + 2, end - begin - 2);
}

QByteArray Reference(int object) { return QByteArray::number(object) + " 0 R"; }

QList<QByteArray> PagesOf(const QByteArray& pdf, const QByteArray& catalog) {
  const QByteArray pages = DictionaryOf(pdf, NumberBehind(catalog, "/Pages "));
  static const QRegularExpression kid("([0-9]+) 0 R");
  const qsizetype kids = pages.indexOf('[');
  QList<QByteArray> found;
  QRegularExpressionMatchIterator each =
      kid.globalMatch(QString::fromLatin1(pages.mid(kids, pages.indexOf(']') - kids)));
  while (each.hasNext()) {
    found += each.next().captured().toLatin1();
  }
  return found;
}

// As a hexadecimal string of UTF-16, which needs no escapes.
QByteArray PdfText(const QString& text) {
  QByteArray hex = "<FEFF";
  for (const QChar unit : text) {
    hex += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').toUpper();
  }
  return hex + '>';
}

// The objects of the outline: the root has the number `root`, entry i the number behind it.
class OutlineObjects {
 public:
  OutlineObjects(const std::vector<OutlineEntry>& entries, QList<QByteArray> pages, int root)
      : entries_(entries), pages_(std::move(pages)), root_(root) {}

  [[nodiscard]] QByteArray Root() const { return "/Type /Outlines\n" + Children(0, 1); }

  [[nodiscard]] QByteArray Entry(std::size_t i) const {
    const OutlineEntry& entry = entries_[i];
    if (entry.page < 1 || entry.page > pages_.size()) {
      Fail("a page is missing");
    }
    QByteArray text = "/Title " + PdfText(entry.title) + "\n/Parent " + Reference(ParentOf(i)) +
                      "\n/Dest [" + pages_[entry.page - 1] + " /XYZ 0 " +
                      QByteArray::number(entry.heightPt, 'f', 1) + " 0]\n";
    const std::size_t next = Next(i);
    if (next < entries_.size()) {
      text += "/Next " + Reference(Number(next)) + '\n';
    }
    if (const std::size_t previous = Previous(i); previous < i) {
      text += "/Prev " + Reference(Number(previous)) + '\n';
    }
    return entry.level == 1 ? text + Children(i + 1, 2) : text;
  }

 private:
  [[nodiscard]] int Number(std::size_t i) const { return root_ + 1 + static_cast<int>(i); }

  [[nodiscard]] int ParentOf(std::size_t i) const {
    if (entries_[i].level == 1) {
      return root_;
    }
    while (entries_[i].level != 1) {
      --i;
    }
    return Number(i);
  }

  // The next entry of the same parent; behind the last where there is none.
  [[nodiscard]] std::size_t Next(std::size_t i) const {
    const int level = entries_[i].level;
    for (std::size_t next = i + 1; next < entries_.size(); ++next) {
      if (entries_[next].level <= level) {
        return entries_[next].level == level ? next : entries_.size();
      }
    }
    return entries_.size();
  }

  // The entry before it of the same parent; itself where there is none.
  [[nodiscard]] std::size_t Previous(std::size_t i) const {
    for (std::size_t before = i; before > 0; --before) {
      if (entries_[before - 1].level <= entries_[i].level) {
        return entries_[before - 1].level == entries_[i].level ? before - 1 : i;
      }
    }
    return i;
  }

  // First, last and count of the entries of a level that begin at i; those of level 2 are closed.
  [[nodiscard]] QByteArray Children(std::size_t i, int level) const {
    if (i >= entries_.size() || entries_[i].level != level) {
      return "";
    }
    std::size_t last = i;
    int count = 1;
    for (std::size_t next = Next(i); next < entries_.size(); next = Next(next)) {
      last = next;
      ++count;
    }
    return "/First " + Reference(Number(i)) + "\n/Last " + Reference(Number(last)) + "\n/Count " +
           QByteArray::number(level == 1 ? count : -count) + '\n';
  }

  const std::vector<OutlineEntry>& entries_;
  QList<QByteArray> pages_;
  int root_;
};

// Appends objects and their cross-reference lines as an update of a PDF.
class PdfUpdate {
 public:
  explicit PdfUpdate(QByteArray pdf) : pdf_(std::move(pdf)) {}

  void Write(int object, const QByteArray& dictionary) {
    table_ += QByteArray::number(object) + " 1\n" +
              QByteArray::number(pdf_.size()).rightJustified(10, '0') + " 00000 n \n";
    pdf_ += QByteArray::number(object) + " 0 obj\n<<\n" + dictionary + ">>\nendobj\n";
  }

  [[nodiscard]] QByteArray Finished(const QByteArray& trailer) const {
    return pdf_ + "xref\n" + table_ + "trailer\n<<\n" + trailer + ">>\nstartxref\n" +
           QByteArray::number(pdf_.size()) + "\n%%EOF\n";
  }

 private:
  QByteArray pdf_;
  QByteArray table_;
};

}  // namespace

QByteArray WithOutline(const QByteArray& pdf, const std::vector<OutlineEntry>& entries) {
  const int catalogNumber = NumberBehind(pdf, "/Root ");
  const int size = NumberBehind(pdf, "/Size ");
  const QByteArray catalog = DictionaryOf(pdf, catalogNumber).trimmed() + '\n';
  const OutlineObjects outline(entries, PagesOf(pdf, catalog), size);
  PdfUpdate update(pdf.endsWith('\n') ? pdf : pdf + '\n');
  update.Write(catalogNumber,
               catalog + "/Outlines " + Reference(size) + "\n/PageMode /UseOutlines\n");
  update.Write(size, outline.Root());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    update.Write(size + 1 + static_cast<int>(i), outline.Entry(i));
  }
  return update.Finished(
      "/Size " + QByteArray::number(size + 1 + static_cast<int>(entries.size())) + "\n/Info " +
      Reference(NumberBehind(pdf, "/Info ")) + "\n/Root " + Reference(catalogNumber) + "\n/Prev " +
      QByteArray::number(NumberBehind(pdf, "startxref\n")) + '\n');
}

QByteArray WithoutCreationDate(const QByteArray& pdf) {
  QByteArray result = pdf;
  const qsizetype begin = result.indexOf("/CreationDate (");
  const qsizetype end = begin < 0 ? begin : result.indexOf(')', begin);
  if (end >= 0) {
    result.replace(begin, end + 1 - begin, QByteArray(end + 1 - begin, ' '));
  }
  return result;
}

}  // namespace tallyo
