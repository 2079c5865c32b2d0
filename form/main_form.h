#pragma once

#include <array>
#include <cstddef>

#include "form/button.h"
#include "form/check_box.h"
#include "form/check_list.h"
#include "form/combo_box.h"
#include "form/label.h"
#include "form/menu_item.h"
#include "form/panel.h"
#include "form/report_list.h"
#include "form/text_box.h"
#include "form/timer.h"
#include "form/web_viewer.h"
#include "form/window.h"

namespace tallyo {

// The screens, by the number of their panel.
namespace screen {
inline constexpr int kManageLinks = 0;
inline constexpr int kCurrentStatus = 1;
inline constexpr int kPreferences = 2;
inline constexpr int kDailyStatus = 3;
inline constexpr int kImportLinks = 4;
inline constexpr int kServiceInfo = 5;
inline constexpr int kLoading = 6;
inline constexpr int kWebPage = 7;
inline constexpr int kText = 8;
inline constexpr std::size_t kCount = 9;
}  // namespace screen

// The rows of the service details, ListView3.
namespace detail {
inline constexpr int kServiceOpen = 1;
inline constexpr int kGoodThrough = 2;
inline constexpr int kSlotsLeft = 3;
inline constexpr int kBytesSession = 4;
inline constexpr int kBytesTotal = 5;
inline constexpr int kFilesMonitored = 6;
inline constexpr int kLastCheck = 7;
inline constexpr int kNextCheck = 8;
inline constexpr int kAccountStatus = 9;
inline constexpr int kOtherStatus = 10;
}  // namespace detail

// The fields of the manage-links screen, Text1.
namespace field {
inline constexpr std::size_t kCompany = 0;
inline constexpr std::size_t kAccount = 1;
inline constexpr std::size_t kLinkPath = 2;
inline constexpr std::size_t kReference = 3;
inline constexpr std::size_t kFriendlyName = 4;
inline constexpr std::size_t kSizeKb = 5;
}  // namespace field

// The labels of the manage-links screen, Label2: four that act, a caption, and the pending action,
// which is not meant to be seen.
namespace action {
inline constexpr std::size_t kImport = 0;
inline constexpr std::size_t kAdd = 1;
inline constexpr std::size_t kRemove = 2;
inline constexpr std::size_t kReset = 3;
inline constexpr std::size_t kPending = 5;
}  // namespace action

// The main window as plain data, with the names, captions and states that it starts with. The lists
// get their rows from the load step.
class MainForm {
 public:
  MainForm();
  ~MainForm() = default;
  MainForm(const MainForm&) = delete;
  MainForm& operator=(const MainForm&) = delete;

  Window Frame;
  std::array<Panel, screen::kCount> Picture1;

  std::array<TextBox, 6> Text1;    // see field
  std::array<Label, 6> Label2;     // see action
  ComboBox Combo1;                 // the monitored links: item i is record i + 1
  std::array<Button, 2> Command1;  // 0 Cancel, 1 Submit

  ReportList ListView1;  // current status: counter, change, path
  ReportList ListView2;  // daily status: the hours by the days
  ReportList ListView3;  // service details, see detail
  ComboBox Combo2;       // the link to examine
  ComboBox Combo3;       // its month

  std::array<CheckBox, 6> Check1;
  TextBox Text2;  // refresh interval in hours
  TextBox Text3;  // default URL

  CheckList List1;  // links found on a page
  Button Command2;  // uses the checked ones
  WebViewer WB1;
  TextBox Text4;  // text output

  std::array<Label, 2> Label4;  // 0 slots left, 1 good-through date
  std::array<Label, 3> Label5;  // 0 and 1 the captions of Label4(1) and Label4(0), 2 the hour
  Label Label8;                 // status
  Timer Timer1;

  MenuItem mnuFile, mnuSave, mnuExportAll, mnuImportAll, sep6, mnuPrefs, sep1, mnuQuit;
  MenuItem mnuOpts, mnuManage, mnuMakeLink, mnuViewStats, mnuExport, sep5, mnuSignup, mnuUpgrade;
  MenuItem mnuWindow, mnuWindDaily, mnuWindCurrent, mnuScrnImport, mnuServiceInfo;
  MenuItem mnuHelp, mnuHelpDoc, mnuSupport, mnuAbout;
  MenuItem TmnuDisTitle;  // a title that only displays

  // The menu bar from left to right.
  [[nodiscard]] std::array<const MenuItem*, 5> MenuBar() const {
    return {&mnuFile, &mnuOpts, &mnuWindow, &mnuHelp, &TmnuDisTitle};
  }

  // Moves the focus: the field that had it loses it, then the new one gets it. A request for the
  // field that has it already, or for one on a hidden screen, is ignored.
  void SetFocus(TextBox& box);
  // The focus moves to a control that is no field: the field that had it loses it.
  void LeaveFocus();
  [[nodiscard]] const TextBox* Focused() const { return focused_; }

 private:
  void DescribeMenus();
  void DescribeManageLinks();
  void DescribeLists();
  void DescribePreferences();
  void DescribeTheRest();

  TextBox* focused_ = nullptr;
};

}  // namespace tallyo
