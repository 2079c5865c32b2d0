// The least that a redirect needs: libmicrohttpd, tuned, with one answer for everything.
// Usage: redirect-floor; the first line printed is its port. Serves until its input ends.

#include <microhttpd.h>

#include <iostream>
#include <limits>

namespace {

MHD_Result Answer(void* redirect, MHD_Connection* connection, const char* /*path*/,
                  const char* /*method*/, const char* /*version*/, const char* /*body*/,
                  std::size_t* /*bodyBytes*/, void** context) {
  if (*context == nullptr) {
    *context = redirect;  // the head has come, the request has not ended
    return MHD_YES;
  }
  return MHD_queue_response(connection, MHD_HTTP_FOUND, static_cast<MHD_Response*>(redirect));
}

}  // namespace

int main() {
  MHD_Response* const redirect =
      MHD_create_response_from_buffer(0, nullptr, MHD_RESPMEM_PERSISTENT);
  MHD_add_response_header(redirect, MHD_HTTP_HEADER_LOCATION,
                          "http://files.example/pub/manual-1.pdf");
  MHD_Daemon* const daemon =
      MHD_start_daemon(MHD_USE_EPOLL_INTERNAL_THREAD | MHD_USE_TURBO, 0, nullptr, nullptr, &Answer,
                       redirect, MHD_OPTION_CONNECTION_LIMIT, 1000U, MHD_OPTION_END);
  if (daemon == nullptr) {
    std::cerr << "redirect-floor: cannot serve\n";
    return 1;
  }
  std::cout << MHD_get_daemon_info(daemon, MHD_DAEMON_INFO_BIND_PORT)->port << std::endl;
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
  MHD_stop_daemon(daemon);
  MHD_destroy_response(redirect);
}
