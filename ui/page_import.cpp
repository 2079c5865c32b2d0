#include "ui/page_import.h"

#include <cstdint>
#include <string>

#include "links/link_scanner.h"
#include "platform/transport_failure.h"

namespace tallyo {

void PageImport::ImportLinksFromPage() {
  if (requests_.InFlight()) {
    return;
  }
  queue_.End();
  const std::string address = form_.Text1[field::kLinkPath].Text();
  screens_.ShowScreen(screen::kImportLinks);
  form_.List1.Clear();
  form_.mnuScrnImport.SetEnabled(true);
  form_.Frame.SetMousePointer(Pointer::Hourglass);
  const std::string page = FetchPage(address);
  traffic_.AddExchange(address, page);
  FoundLinks found = ScanLinks(page, PageBase(address));
  for (std::string& link : found.links) {
    form_.List1.AddLine(std::move(link));
  }
  if (found.complete) {
    form_.Frame.SetMousePointer(Pointer::Normal);
  }
}

std::string PageImport::FetchPage(const std::string& address) {
  try {
    return requests_.FetchDocument(address);
  } catch (const TransportFailure&) {
    return "";
  }
}

}  // namespace tallyo
