#pragma once

#include <cstdint>
#include <string_view>

#include "form/main_form.h"
#include "platform/clock.h"
#include "stats/daily_files.h"
#include "ui/screens.h"

namespace tallyo {

// The daily status screen: for one link and month a grid of 24 hours by the month's days.
class DailyStatus {
 public:
  // Connects itself to the screen's controls, which must outlive it.
  DailyStatus(MainForm& form, Screens& screens, DailyFiles& dailyFiles, const Clock& clock);

  // Gives the grid its 32 columns and 24 rows. To be called once.
  void BuildGrid();

  // Opens the screen with the first link and the current month.
  void Open();

  // Gives the grid as many day columns as the month in Combo3 has days, heads it with the month and
  // the current year, and empties it.
  void ShowMonth();

 private:
  void LinkChosen();
  void MonthChosen();
  void AdjustDayColumns(std::int16_t days);
  void NameHour(int row);

  MainForm& form_;
  Screens& screens_;
  DailyFiles& dailyFiles_;
  const Clock& clock_;
};

}  // namespace tallyo
