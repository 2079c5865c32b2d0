#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "links/link_index.h"
#include "settings/settings.h"

namespace tallyo {

// The monitored links: records 01, 02, ... in the settings store, each a value of its own key, and
// their names in Combo1 in the same order.
class MonitoredLinks {
 public:
  // appendAfterLast is what the setting of that name means where it is absent.
  MonitoredLinks(MainForm& form, SharedState& state, Settings& settings, bool appendAfterLast)
      : form_(form), state_(state), settings_(settings), appendAfterLast_(appendAfterLast) {}

  // Fills Combo1 from the store, up to the first record with fewer than two commas, and leaves
  // NextLinkIndex at the last record, or behind it where the setting "AppendAfterLast" is on.
  void LoadMonitoredLinks();

  // The records as they stand now, for many lookups in a row that nothing comes between. The
  // reference lives until the next call of this or of FindMonitoredLink.
  [[nodiscard]] const LinkIndex& Index();

  // Reads the records from 01 upward until one matches. `fields` is the caller's and is left as
  // the walk leaves it. Throws RuntimeError at a record of five or more fields.
  LinkLookup FindMonitoredLink(LinkFields& fields, std::string_view key, FindBy by);

  // The text of a record that a lookup found, by its number.
  [[nodiscard]] std::string RecordOf(const LinkLookup& found);

  // Adds a row to the current status for each item of Combo1. 65535 where an item has no record or
  // a record cannot be read (the rows before it stay), else 0.
  [[nodiscard]] std::uint16_t CheckMonitoredLinks();

  // Stores a new link and lists it. Throws RuntimeError when the numbers run out.
  void AppendMonitoredLink(const LinkFields& fields);

  // Removes the record of the first item of that name and renumbers those behind it, as one change
  // of the store. The item itself stays in Combo1.
  void RemoveMonitoredLink(std::string_view name);

  // The slots that are left: the account's quota less the listed links.
  void ShowSlotsLeft();

 private:
  void MoveRecord(int from, int to);

  MainForm& form_;
  SharedState& state_;
  Settings& settings_;
  bool appendAfterLast_;
  LinkIndex index_;
  StoreStamp indexStamp_;
  bool indexBuilt_ = false;
};

}  // namespace tallyo
