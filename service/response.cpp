#include "service/response.h"

#include <microhttpd.h>

#include <new>
#include <vector>

namespace tallyo::service {

void Response::Releaser::operator()(MHD_Response* handle) const { MHD_destroy_response(handle); }

Response::Response() {
  handle_.reset(MHD_create_response_from_buffer(0, nullptr, MHD_RESPMEM_PERSISTENT));
  if (!handle_) throw std::bad_alloc();
}

Response::Response(std::string_view contentType, std::string_view body) {
  // The library asks for a pointer to bytes that it may change, yet only copies them.
  std::vector<char> bytes(body.begin(), body.end());
  handle_.reset(MHD_create_response_from_buffer(bytes.size(), bytes.data(), MHD_RESPMEM_MUST_COPY));
  if (!handle_) throw std::bad_alloc();
  SetHeader(MHD_HTTP_HEADER_CONTENT_TYPE, std::string(contentType).c_str());
  SetHeader("X-Content-Type-Options", "nosniff");
}

Response Response::RedirectTo(const std::string& url) {
  Response redirect;
  redirect.SetHeader(MHD_HTTP_HEADER_LOCATION, url.c_str());
  redirect.SetHeader(MHD_HTTP_HEADER_CACHE_CONTROL, "no-store");
  return redirect;
}

void Response::SetHeader(const char* name, const char* value) {
  if (MHD_add_response_header(handle_.get(), name, value) != MHD_YES) throw std::bad_alloc();
}

}  // namespace tallyo::service
