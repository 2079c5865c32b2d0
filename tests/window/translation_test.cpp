#include "ui/qt/translation.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QXmlStreamReader>
#include <fstream>
#include <set>

#include "tests/window/window_under_test.h"
#include "ui/qt/elided_label.h"

namespace tallyo {
namespace {

using test::WindowUnderTest;
using Texts = std::set<QString>;

// A language of texts that are nearly half as long again, in brackets: "[Loading %1 ···]". It notes
// what it was asked for.
class BracketLanguage : public QTranslator {
 public:
  BracketLanguage() { QCoreApplication::installTranslator(this); }
  [[nodiscard]] bool isEmpty() const override { return false; }
  [[nodiscard]] QString translate(const char* context, const char* source, const char* /*comment*/,
                                  int /*number*/) const override {
    if (*context == 'Q') {
      return {};  // the toolkit's own
    }
    asked.insert(QString("%1: %2").arg(context, source));
    const QString text = source;
    return '[' + text + ' ' + QString((text.size() + 1) / 3, QChar(0xB7)) + ']';
  }

  mutable Texts asked;  // "Context: text"
};

// The texts that translators are given.
Texts Template() {
  QFile file(TALLYO_TRANSLATIONS "/tallyo.ts");
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  Texts texts;
  QString context;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == u"name") {
      context = xml.readElementText();
    } else if (xml.isStartElement() && xml.name() == u"source") {
      texts.insert(context + ": " + xml.readElementText());
    }
  }
  return texts;
}

QString Plain(QString text) {
  return text.remove(QRegularExpression("<[^>]*>")).remove('&').simplified();
}

// What stays as it is in every language: the system's own texts and what the test puts into them.
Texts Stated(MainForm& form) {
  Texts texts{"every", "Hrs.", "intro.sht", "Tallyo", "http://h/A", "http://h/B"};
  const auto add = [&](const std::string& text) { texts.insert(Plain(text.c_str())); };
  const auto caption = [&](const auto& control) { add(control.Caption()); };
  const auto captions = [&](const auto&... arrays) {
    (std::ranges::for_each(arrays, caption), ...);
  };
  captions(form.Text1, form.Label2, form.Command1, form.Check1, form.Label4, form.Label5);
  (caption(form.Text2), caption(form.Text3), caption(form.Command2), caption(form.List1));
  (caption(form.Frame), caption(form.Label8));
  for (const MenuItem* const menu : form.MenuBar()) {
    caption(*menu);
    std::ranges::for_each(menu->Items(), [&](const MenuItem* item) { caption(*item); });
  }
  for (const ComboBox* const combo : {&form.Combo1, &form.Combo2, &form.Combo3}) {
    caption(*combo);
    std::ranges::for_each(combo->Items(), add);
  }
  for (const ReportList* const list : {&form.ListView1, &form.ListView2, &form.ListView3}) {
    std::ranges::for_each(list->Headings(), [&](const auto& heading) { add(heading.text); });
    for (int row = 1; row <= list->RowCount(); ++row) {
      add(list->RowText(row));
      for (int i = 1; i < static_cast<int>(list->Headings().size()); ++i) {
        add(list->Value(row, i));
      }
    }
  }
  return texts;
}

void AddTextsOf(const QAbstractItemModel& model, QStringList& texts) {
  for (const int role : {int{Qt::DisplayRole}, int{Qt::ToolTipRole}, int{Qt::AccessibleTextRole}}) {
    for (int column = 0; column < model.columnCount(); ++column) {
      texts += model.headerData(column, Qt::Horizontal, role).toString();
      for (int row = 0; row < model.rowCount(); ++row) {
        texts += model.index(row, column).data(role).toString();
      }
    }
  }
}

// All that the widget says or would say; what is typed into a field is nobody's text.
QStringList TextsOf(const QWidget& widget) {
  QStringList texts{widget.toolTip(), widget.windowTitle(), widget.accessibleName(),
                    widget.accessibleDescription(), widget.property("placeholderText").toString()};
  if (widget.inherits("QLabel") || widget.inherits("QAbstractButton")) {
    texts += widget.property("text").toString();
  }
  for (const QAction* const action : widget.actions()) {
    texts += {action->text(), action->toolTip()};
  }
  if (const auto* const page = qobject_cast<const QTextBrowser*>(&widget)) {
    texts += page->toPlainText().split('\n');
  }
  if (const auto* const view = qobject_cast<const QAbstractItemView*>(&widget);
      view != nullptr && view->model() != nullptr) {
    AddTextsOf(*view->model(), texts);
  }
  return texts;
}

// Whether something stands outside all brackets that is neither a number nor stated.
bool IsUntranslated(const QString& text, const Texts& stated) {
  static const QRegularExpression kInnermost("\\[[^][]*\\]");
  QString rest = Plain(text);
  while (rest.contains(kInnermost)) {
    rest.remove(kInnermost);
  }
  return std::ranges::any_of(rest, [](QChar c) { return c.isLetter(); }) &&
         !stated.contains(rest.simplified());
}

constexpr int kRoomInButton = 8;  // pixels beside its text

// Texts that give way to the room they have, with a tool tip, are not cut.
bool IsCut(const QWidget& widget) {
  const auto* const label = qobject_cast<const QLabel*>(&widget);
  const QString text = widget.property("text").toString();
  if (!widget.isVisible() || text.isEmpty() || dynamic_cast<const ElidedLabel*>(label) != nullptr) {
    return false;
  }
  if (label != nullptr && label->wordWrap()) {
    return label->heightForWidth(label->width()) > label->height();
  }
  QSize wanted = widget.sizeHint();
  if (widget.inherits("QPushButton")) {  // it would like to be wider than its text
    wanted.setWidth(widget.fontMetrics().horizontalAdvance(Plain(text)) + kRoomInButton);
  }
  return (label != nullptr || widget.inherits("QAbstractButton")) &&
         (wanted.width() > widget.width() || wanted.height() > widget.height());
}

class WindowTranslationTest : public testing::Test {
 protected:
  void TearDown() override {
    const Texts known = Template();
    for (const QString& text : language.asked) {
      EXPECT_TRUE(known.contains(text))
          << text.toStdString() << ": renew the files with the target translations-update";
    }
  }
  void LookOver(const std::string& where) {
    const Texts stated = Stated(test.Form());
    QList<const QWidget*> widgets{&test.window};
    widgets += test.window.findChildren<const QWidget*>();
    for (const QWidget* const widget : widgets) {
      const std::string name = where + ": " + widget->metaObject()->className() + ' ' +
                               widget->objectName().toStdString();
      for (const QString& text : TextsOf(*widget)) {
        EXPECT_FALSE(IsUntranslated(text, stated)) << name << ": " << text.toStdString();
      }
      EXPECT_FALSE(IsCut(*widget)) << name << widget->property("text").toString().toStdString();
    }
  }

  BracketLanguage language;
  WindowUnderTest test;
};

TEST_F(WindowTranslationTest, HasAllTextsButTheSystemsOwnInSightAndWhole) {
  std::ofstream(test.folder.Path() / "intro.sht") << "42";
  test.clock.Set(2026, 11, 22, 10, 0, 0);
  test.GiveAccount();
  test.GiveLinks({"A"});
  test.Start();
  test.ClickItem("mnuWindDaily");
  test.Form().ListView2.SetValue(10, 15, "12");
  test.Form().ListView2.SetValue(1, 1, "1");
  test.Form().List1.AddLine("http://h/B");
  test.Find("Busy").show();
  for (int screen = 0; screen < static_cast<int>(screen::kCount); ++screen) {
    test.Show(screen);
    LookOver("screen " + std::to_string(screen));
  }
  EXPECT_EQ(test.Find<QLabel>("MonthSum").text(), "[Nov: [13 hits ··] ··]");
}

TEST_F(WindowTranslationTest, HasTheProblemsOfPages) {
  test.Start();
  test.server.AnswerWith("/zip", {.headers = {"Content-Type: application/zip"}, .body = "x"});
  const QTextBrowser& page = test.Find<QTextBrowser>("WB1");
  for (const std::string& address :
       {std::string("ftp://h/"), std::string("/etc/hostname"), test.server.Url("/zip")}) {
    test.Form().WB1.Navigate(address);
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.toPlainText().contains(address.c_str()); }));
    const QStringList lines = page.toPlainText().split('\n');
    EXPECT_FALSE(IsUntranslated(lines.front(), {})) << lines.front().toStdString();
    EXPECT_FALSE(IsUntranslated(lines.back(), {})) << lines.back().toStdString();
  }
}

// A file with the text "Hi" of the context "T", translated into five letters.
void WriteTranslation(const std::filesystem::path& folder, const std::string& language,
                      const std::string& fiveLetters) {
  std::string file = QByteArray::fromHex(
                         "3cb86418caef9c95cd211cbf60a1bddda7000000026465420000000800"
                         "0004e9000000006900000022030000000a00480061006c006c006f0800"
                         "000000060000000248690700000001540188000000020101")
                         .toStdString();
  for (std::size_t i = 0; i < fiveLetters.size(); ++i) {
    file.at(0x2f + 2 * i) = fiveLetters[i];
  }
  std::filesystem::create_directories(folder / "translations");
  std::ofstream(folder / "translations" / ("tallyo_" + language + ".qm")) << file;
}

TEST(Translation, SpeaksTheFirstLanguageOfThePersonThatIsThere) {
  const test::TempFolder appDir;
  const test::TempFolder installed;
  WriteTranslation(appDir.Path(), "nl", "first");
  for (const char* const language : {"de", "nl", "pt", "pt_BR"}) {
    WriteTranslation(installed.Path(), language, (language + std::string(3, '.')).substr(0, 5));
  }
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"de_AT", "de..."}, {"pt_BR", "pt_BR"}, {"pt_PT", "pt..."}, {"nl_NL", "first"},
      {"en_US", "Hi"},    {"fr_FR", "Hi"},    {"C", "Hi"}};
  for (const auto& [locale, expected] : cases) {
    const Translation translation({appDir.Path(), installed.Path()}, QLocale(locale));
    EXPECT_EQ(QCoreApplication::translate("T", "Hi").toStdString(), expected) << locale;
  }
  EXPECT_EQ(QCoreApplication::translate("T", "Hi"), "Hi");  // the language ends with its owner
}

}  // namespace
}  // namespace tallyo
