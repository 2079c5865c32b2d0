#pragma once

#include <string_view>

// Every key and value that the program keeps in its settings store.
namespace tallyo::names {

inline constexpr std::string_view AppTitle = "Tallyo";
inline constexpr std::string_view SettingsKey = R"(Software\Quillmere\Tallyo)";
inline constexpr std::string_view RunKey = R"(Software\Microsoft\Windows\CurrentVersion\Run)";
// Record NN of the monitored links is the value NN of the key MonitorFilesKey + NN.
inline constexpr std::string_view MonitorFilesKey = R"(Software\Quillmere\Tallyo\MonitorFiles\)";

inline constexpr std::string_view kUser = "User";
inline constexpr std::string_view kAccount = "Account";
inline constexpr std::string_view kAccOpen = "AccOpen";
inline constexpr std::string_view kBytesTransTotal = "BytesTransTotal";
inline constexpr std::string_view kPrevCheck = "PrevCheck";
inline constexpr std::string_view kShowSlotsLeft = "ShowSlotsLeft";
inline constexpr std::string_view kDaysLeft = "daysLeft";
inline constexpr std::string_view kStartPos = "StartPos";
inline constexpr std::string_view kUpdChck = "UpdChck";
inline constexpr std::string_view kDefUrl = "DefURL";
inline constexpr std::string_view kUpdDefTime = "UpdDefTime";
inline constexpr std::string_view kAppendAfterLast = "AppendAfterLast";
inline constexpr std::string_view kCountOnce = "CountOnce";

}  // namespace tallyo::names
