#pragma once

#include <string>
#include <string_view>

// Every key and value that the program keeps in its settings store.
namespace tallyo::names {

inline constexpr std::string_view kAppTitle = "Tallyo";
inline constexpr std::string_view kSettingsRoot = "Software\\Quillmere\\";  // AppTitle follows
inline constexpr std::string_view kRunKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr std::string_view kMonitorFiles = "\\MonitorFiles\\";  // behind SettingsKey

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
