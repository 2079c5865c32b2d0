#include "ui/daily_status.h"

#include <string>

#include "stats/month_days.h"
#include "text/dates.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

constexpr int kHours = 24;
constexpr int kDays = 31;
constexpr int kColumnWidth = 600;  // twips

}  // namespace

DailyStatus::DailyStatus(MainForm& form, Screens& screens, DailyFiles& dailyFiles,
                         const Clock& clock)
    : form_(form), screens_(screens), dailyFiles_(dailyFiles), clock_(clock) {
  form_.Combo2.OnClick = [this] { LinkChosen(); };
  form_.Combo3.OnClick = [this] { MonthChosen(); };
  form_.ListView2.OnItemClick = [this](int row) { NameHour(row); };
}

void DailyStatus::BuildGrid() {
  const Date today = clock_.Now().date;
  form_.ListView2.AddHeading({MonthName(today) + ", " + YearText(today), kColumnWidth});
  for (int day = 1; day <= kDays; ++day) {
    form_.ListView2.AddHeading({" " + std::to_string(day), kColumnWidth});
  }
  for (int hour = 0; hour < kHours; ++hour) {
    form_.ListView2.AddRow(std::to_string(hour));
  }
}

void DailyStatus::Open() {
  screens_.ShowScreen(screen::kDailyStatus);
  form_.Combo2.Clear();
  for (const std::string& name : form_.Combo1.Items()) {
    form_.Combo2.AddItem(name);
  }
  form_.Combo3.SetText(MonthName(clock_.Now().date));
  ShowMonth();
  form_.Combo2.SetVisible(true);
  form_.Combo3.SetVisible(true);
  form_.Label5[2].SetVisible(true);
  if (form_.Combo2.Count() > 0) {
    form_.Combo2.SetText(form_.Combo2.Items().front());
  }
  LinkChosen();
}

void DailyStatus::ShowMonth() {
  std::int16_t days = 0;
  DaysInMonth(form_.Combo3.Text(), days);
  AdjustDayColumns(days);
  for (int day = 1; day <= days; ++day) {
    for (int row = 1; row <= kHours; ++row) {
      form_.ListView2.SetValue(row, day, "");
    }
  }
}

void DailyStatus::LinkChosen() {
  dailyFiles_.LoadDailyFile(form_.Combo3.Text().substr(0, 3), form_.Combo2.Text());
  const int row = clock_.Now().hour + 1;
  form_.ListView2.Select(row);
  NameHour(row);
}

void DailyStatus::MonthChosen() {
  ShowMonth();
  dailyFiles_.LoadDailyFile(form_.Combo3.Text(), form_.Combo2.Text());
}

void DailyStatus::AdjustDayColumns(std::int16_t days) {
  ReportList& grid = form_.ListView2;
  const auto columns = static_cast<int>(grid.Headings().size()) - 1;
  if (columns != days && days == kDays) {
    grid.AddHeading({TwoDigits(days), kColumnWidth});
  } else if (columns != days && days == kDays - 1) {
    grid.RemoveLastHeading();
  }
  grid.SetHeading(1, form_.Combo3.Text() + ", " + YearText(clock_.Now().date));
}

// The hours of half a day count from 00 to 11: noon is 00 PM.
void DailyStatus::NameHour(int row) {
  const int hour = row - 1;
  const bool afternoon = hour > 11;
  form_.Label5[2].SetCaption("Selected Time: " + TwoDigits(afternoon ? hour - 12 : hour) +
                             (afternoon ? " PM" : " AM"));
}

}  // namespace tallyo
