#pragma once

#include <string_view>

namespace tallyo::service {

// What the header lines of a request say of it, gathered line by line.
class RequestHeaders {
 public:
  void Note(std::string_view name, std::string_view value);

  // Whether somebody looks at the link from its beginning: no prefetch, no later part of a file.
  [[nodiscard]] bool IsVisit() const { return isVisit_; }
  // Whether a page of another site made the browser ask.
  [[nodiscard]] bool IsFromAnotherSite() const { return isFromAnotherSite_; }

 private:
  bool isVisit_ = true;
  bool isFromAnotherSite_ = false;
};

}  // namespace tallyo::service
