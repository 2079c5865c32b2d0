// make_pictures START-PAGE FOLDER: grabs each screen of the window, with made-up data, into a PNG.
#include <QApplication>
#include <QPixmap>
#include <QStyleFactory>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>

#include "tests/support/test_program.h"
#include "text/two_digits.h"
#include "ui/qt/main_window.h"

namespace tallyo::test {
namespace {

// The addresses that are seen on the pictures. The scripted server stands for both, as a proxy
// does.
constexpr const char* kService = "http://counts.example.com/";
constexpr const char* kPage = "http://www.example.com/index.html";

// A program with four links and the first three weeks of a month.
void GiveData(TestProgram& t, const std::filesystem::path& startPage) {
  const std::string service = kService;
  t.clock.Set(2026, 11, 22, 14, 5, 9);
  t.Set(names::kUser, "Acme");
  t.Set(names::kAccount, "mysite");
  t.server.Answer(service + "Tallyo/accounts/mysite.txt",
                  "opn=01/15/2014,max=12,exp=12/31/2027,ban=no,com=Acme,acc=mysite\n");
  t.SetRecord("01", "1840,Manual,manual.pdf,http://www.example.com/files/manual.pdf");
  t.SetRecord("02", "96,Prices,prices.pdf,http://www.example.com/files/prices.pdf");
  t.SetRecord("03", "310,Newsletter,latest.html,http://www.example.com/news/latest.html");
  t.SetRecord("04", "25600,Setup,setup.tar.gz,http://www.example.com/files/setup.tar.gz");
  t.server.Answer(
      service + "cgi-bin/Tallyo/devstats.cgi?account=mysite.txt&action=show",
      "<P>4213 manual.pdf\n<P>1187 prices.pdf\n<P>902 latest.html\n<P>377 setup.tar.gz\n");
  t.server.Answer(kPage,
                  "<A HREF=\"http://www.example.com/files/manual.pdf\">Manual</A> <A "
                  "HREF=\"http://www.example.com/files/prices.pdf\">Prices</A> "
                  "<A HREF=\"http://www.example.com/files/setup.tar.gz\">Setup</A> <A "
                  "HREF=\"http://www.example.com/news/latest.html\">News</A>");
  t.WriteFile("Data/LastRead.dat", "Manual=4190,Prices=1187,Newsletter=895,Setup=371,\r\n");
  std::string month;
  unsigned number = 7;
  for (int day = 1; day <= 22; ++day) {
    for (int hour = 6; hour < (day == 22 ? 14 : 23); ++hour) {
      number = number * 1103515245U + 12345U;
      const int busy = 24 - 2 * std::abs(hour - 14);
      const int hits = static_cast<int>((number >> 16U) % 24U) * std::max(busy, 2) / 24;
      if (hits > 0) {
        month += TwoDigits(day) + TwoDigits(hour) + std::to_string(hits) + "\r\n";
      }
    }
  }
  t.WriteFile("Data/2026/Manual-Nov", month);
  std::filesystem::copy_file(startPage, t.folder.Path() / "intro.sht");
}

void Settle() {
  for (int i = 0; i < 20; ++i) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  }
}

// Takes a picture of each screen of the started program's window after what is done before it.
void TakeAll(TestProgram& t, const std::filesystem::path& folder) {
  MainForm& form = t.Form();
  MainWindow window(t.P(), OwnDocuments(t.folder.Path()));
  window.Start();
  Settle();
  const auto manage = [&] {
    form.mnuManage.Click();
    Settle();
    form.Combo1.Choose(0);
    form.Label2[action::kAdd].MouseMove();
  };
  const auto import = [&] {
    form.Text1[field::kLinkPath].SetText(kPage);
    form.Label2[action::kPending].SetCaption("IMPORT");
    form.List1.Check(0, true);
    form.List1.Check(2, true);
  };
  const std::pair<const char*, std::function<void()>> pictures[] = {
      {"web-page", [&] { form.mnuViewStats.Click(); }},
      {"current-status", [&] { form.mnuWindCurrent.Click(); }},
      {"daily-status", [&] { form.mnuWindDaily.Click(); }},
      {"preferences", [&] { form.mnuPrefs.Click(); }},
      {"service-info", [&] { form.mnuServiceInfo.Click(); }},
      {"manage-links", manage},
      {"text", [&] { form.mnuExport.Click(); }},
      {"import-links", import}};
  for (const auto& [name, event] : pictures) {
    t.P().Dispatch(event);
    Settle();
    const std::string file = (folder / (std::string(name) + ".png")).string();
    if (!window.grab().save(QString::fromStdString(file))) {
      std::cerr << "cannot write " << file << '\n';
    }
  }
}

}  // namespace
}  // namespace tallyo::test

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create("fusion"));
  if (argc != 3) {
    std::cerr << "make_pictures START-PAGE FOLDER\n";
    return 2;
  }
  tallyo::test::TestProgram t;
  t.countOnce = true;
  qputenv("http_proxy", t.server.Url().c_str());
  tallyo::test::GiveData(t, argv[1]);
  t.NewSession();
  t.P().state.ServiceBaseUrl = tallyo::test::kService;
  tallyo::test::TakeAll(t, argv[2]);
  t.P().Quit();
  return 0;
}
