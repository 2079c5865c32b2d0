#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::BoxKind;
using test::WindowUnderTest;

struct ForeignText {
  const char* name;
  std::string bytes;
  QString shown;
};

void PrintTo(const ForeignText& text, std::ostream* out) { *out << text.name; }

ForeignText Same(const char* name, const std::string& bytes) {
  return {name, bytes, QString::fromStdString(bytes)};
}

// One text from outside in every place that can hold one.
class ForeignTextTest : public testing::TestWithParam<ForeignText> {
 protected:
  void SetUp() override {
    test.GiveAccount(true, GetParam().bytes);
    test.GiveRecord(1, "1," + GetParam().bytes + ",A.zip,http://h/" + GetParam().bytes);
    std::string counter = "12" + GetParam().bytes;
    std::erase(counter, ' ');
    test.server.Answer(test::kCounters, "<P>" + counter + " A.zip\n");
    test.Start();
    test.Press(Qt::Key_F5);
    test.Form().Label4[1].SetCaption(GetParam().bytes);
    test.Form().Label8.SetCaption(GetParam().bytes);
    for (Label* const label : {&test.Form().Label4[1], &test.Form().Label5[0]}) {
      label->SetVisible(true);
    }
  }

  WindowUnderTest test{BoxKind::Real};
};

INSTANTIATE_TEST_SUITE_P(
    Window, ForeignTextTest,
    testing::Values(Same("Markup", "<h1>big</h1><img src=\"file:///etc/passwd\">"),
                    Same("AccessKeys", "Salt & Pepper && Co &amp; more"),
                    Same("RightToLeft", "\u202E\u05E9\u05DC\u05D5\u05DD abc \u0645\u0631\u062D"),
                    Same("Emoji", "\U0001F469\u200D\U0001F680 \U0001F1E9\U0001F1EA \u2764\uFE0F"),
                    Same("FourThousand", std::string(4000, 'W')),
                    ForeignText{"NoUtf8", "caf\xE9 \x80\xFF", "caf\u00E9 \u20AC\u00FF"}),
    [](const auto& text) { return std::string(text.param.name); });

TEST_P(ForeignTextTest, IsShownAsItStands) {
  const QString& shown = GetParam().shown;
  test.Show(screen::kManageLinks);
  EXPECT_EQ(test.Find<QLineEdit>("Text1_0").text(), shown);
  EXPECT_EQ(test.Find<QComboBox>("Combo1").itemText(0), shown);
  const auto& status = *test.Find<QTableView>("ListView1").model();
  EXPECT_EQ(status.index(0, 0).data().toString(), shown);
  EXPECT_EQ(status.index(0, 3).data().toString(), "http://h/" + shown);
  EXPECT_EQ(status.index(0, 1).data().toString(), "12" + QString(shown).remove(' '));
  EXPECT_FALSE(status.index(0, 0).data(Qt::ToolTipRole).toString().contains("<h1>"));
  for (const char* const name : {"Label4_1", "Label8"}) {
    EXPECT_EQ(test.Find<QLabel>(name).text(), shown);
    EXPECT_EQ(test.Find<QLabel>(name).textFormat(), Qt::PlainText);
  }
  const QString title = test.Find<QAction>("TmnuDisTitle").text();
  EXPECT_EQ(title.count('&') % 2, 0) << title.toStdString();
}

TEST_P(ForeignTextTest, MakesNoWindowLarger) {
  for (int screen = 0; screen < static_cast<int>(screen::kCount); ++screen) {
    test.Show(screen);
    const Place& panel = test.Form().Picture1.at(static_cast<std::size_t>(screen)).Where();
    EXPECT_EQ(test.window.width(), (panel.width + 600) / 15) << screen;
    EXPECT_EQ(test.window.height(), (panel.top + panel.height + 1200) / 15) << screen;
    for (const char* const name : {"Label8", "Label4_1", "MenuBar"}) {
      const QWidget& widget = test.Find(name);
      EXPECT_LE(widget.mapTo(&test.window, widget.rect().bottomRight()).x(), test.window.width());
    }
  }
}

TEST_P(ForeignTextTest, StandsInABoxOfReadableSize) {
  QString text;
  Qt::TextFormat format{};
  QSize size;
  test.WhenBox([&](QMessageBox& box) {
    text = box.detailedText().isEmpty() ? box.text() : box.detailedText();
    format = box.textFormat();
    size = box.size();
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  test.realBoxes.Show({.text = GetParam().bytes, .title = GetParam().bytes});
  EXPECT_EQ(text.remove(QChar(0x200B)), GetParam().shown);
  EXPECT_EQ(format, Qt::PlainText);
  EXPECT_LE(size.width(), 800);
  EXPECT_LE(size.height(), 800);
}

}  // namespace
}  // namespace tallyo
