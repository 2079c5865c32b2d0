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
  QString shown = QString::fromStdString(bytes);
};

void PrintTo(const ForeignText& text, std::ostream* out) { *out << text.name; }

// One text from outside in every place that can hold one.
class ForeignTextTest : public testing::TestWithParam<ForeignText> {
 protected:
  void SetUp() override {
    const std::string& bytes = GetParam().bytes;
    test.GiveAccount();
    test.Set(names::kUser, bytes);
    test.server.Answer(test::kAccountPath, "opn=01/15/2014,max=10,exp=01/15/2027,ban=no,com=" +
                                               bytes + ",acc=mysite\n");
    test.SetRecord("01", "1," + bytes + ",A.zip,http://h/" + bytes);
    std::string counter = "12" + bytes;
    std::erase(counter, ' ');
    test.GiveCounters("<P>" + counter + " A.zip\n");
    test.Start();
    test.Press(Qt::Key_F5);
    test.Form().Label4[1].SetCaption(bytes);
    test.Form().Label8.SetCaption(bytes);
    for (Label* const label : {&test.Form().Label4[1], &test.Form().Label5[0]}) {
      label->SetVisible(true);
    }
  }

  WindowUnderTest test{BoxKind::Real};
};

INSTANTIATE_TEST_SUITE_P(
    Window, ForeignTextTest,
    testing::Values(
        ForeignText{"Markup", "<h1>big</h1><img src=\"file:///etc/passwd\">"},
        ForeignText{"AccessKeys", "R&D && S&amp;T & Co"},
        ForeignText{"RightToLeft", "\u202E\u05E9\u05DC\u05D5\u05DD abc \u0645\u0631\u062D"},
        ForeignText{"Emoji", "\U0001F469\u200D\U0001F680 \U0001F1E9\U0001F1EA \u2764\uFE0F"},
        ForeignText{"FourThousand", std::string(4000, 'W')},
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

TEST_P(ForeignTextTest, LeavesTheWindowAsLargeAsItsScreenAsks) {
  for (int screen = 0; screen < static_cast<int>(screen::kCount); ++screen) {
    SCOPED_TRACE(screen);
    test.Show(screen);
    const Place& place = test.Form().Picture1.at(static_cast<std::size_t>(screen)).Where();
    EXPECT_EQ(test.window.size(),
              QSize((place.width + 600) / 15, (place.top + place.height + 1200) / 15));
    const QWidget& panel = test.Find(QString("Picture1_%1").arg(screen));
    EXPECT_EQ(panel.geometry(), QRect(12, 16, place.width / 15, place.height / 15));
    for (const QWidget* const child :
         panel.findChildren<const QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      EXPECT_TRUE(!child->isVisible() || panel.rect().contains(child->geometry()))
          << child->objectName().toStdString();
    }
    for (const char* const name : {"Label8", "Label4_1", "MenuBar"}) {
      const QWidget& widget = test.Find(name);
      EXPECT_LE(widget.mapTo(&test.window, widget.rect().bottomRight()).x(), test.window.width());
    }
  }
}

TEST_P(ForeignTextTest, StandsInABoxOfReadableSize) {
  QString text;
  test.WhenOpen<QMessageBox>([&](QMessageBox& box) {
    text = box.detailedText().isEmpty() ? box.text() : box.detailedText();
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_LE(box.width(), 800);
    EXPECT_LE(box.height(), 800);
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  test.Boxes().Show({.text = GetParam().bytes, .title = GetParam().bytes});
  EXPECT_EQ(text.remove(QChar(0x200B)), GetParam().shown);
}

}  // namespace
}  // namespace tallyo
