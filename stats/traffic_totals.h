#pragma once

#include <cstdint>
#include <string_view>

#include "form/main_form.h"
#include "settings/settings.h"

namespace tallyo {

// The characters exchanged with the service, in this session and in all sessions.
class TrafficTotals {
 public:
  TrafficTotals(MainForm& form, Settings& settings) : form_(form), settings_(settings) {}

  // Adds to both rows of the service details and to the exact total in the settings. The rows count
  // on from their own displayed text: behind "1.5 KB" comes 2 plus the count. A row whose new value
  // does not fit 32 bits stays as it is. With any row but 4 nothing happens.
  void AddTransferredBytes(std::int32_t count, std::int16_t row);

  // Counts both sides of one exchange, with one change of the settings.
  void AddExchange(std::string_view sent, std::string_view received);

 private:
  void AddToRow(int row, std::int32_t count);
  void AddToTotal(std::int32_t count);

  MainForm& form_;
  Settings& settings_;
};

}  // namespace tallyo
