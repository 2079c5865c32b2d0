#pragma once

#include <memory>
#include <string>
#include <string_view>

struct MHD_Response;

namespace tallyo::service {

// An answer of the HTTP library, ready to be sent any number of times from any thread. An answer
// that is being sent lives on without its owner.
class Response {
 public:
  // Copies the body. Raises std::bad_alloc where there is no memory for it.
  Response(std::string_view contentType, std::string_view body);
  // An empty body: a redirection that no cache may keep. The URL must hold no control byte.
  static Response RedirectTo(const std::string& url);

  void SetHeader(const char* name, const char* value);
  [[nodiscard]] MHD_Response* Handle() const { return handle_.get(); }

 private:
  Response();
  struct Releaser {
    void operator()(MHD_Response* handle) const;
  };
  std::unique_ptr<MHD_Response, Releaser> handle_;
};

}  // namespace tallyo::service
