#pragma once

#include "form/main_form.h"
#include "stats/service_requests.h"
#include "stats/traffic_totals.h"
#include "ui/import_queue.h"
#include "ui/screens.h"

namespace tallyo {

// Lists the links of the web page whose address stands in the path field.
class PageImport {
 public:
  PageImport(MainForm& form, ServiceRequests& requests, TrafficTotals& traffic, Screens& screens,
             ImportQueue& queue)
      : form_(form), requests_(requests), traffic_(traffic), screens_(screens), queue_(queue) {}

  // Shows the import screen with the links found. A page that cannot be fetched has none. The
  // hourglass stays where the page ends inside an anchor. Refused while another document is
  // fetched.
  void ImportLinksFromPage();

 private:
  [[nodiscard]] std::string FetchPage(const std::string& address);

  MainForm& form_;
  ServiceRequests& requests_;
  TrafficTotals& traffic_;
  Screens& screens_;
  ImportQueue& queue_;
};

}  // namespace tallyo
