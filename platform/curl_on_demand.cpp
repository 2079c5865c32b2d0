// libcurl brings some thirty libraries along, and loading them takes longer than most commands that
// fetch nothing. So the programs are not linked with it: the functions of it that they call stand
// here, and load it with their first call.

#include "platform/curl_on_demand.h"

#include <dlfcn.h>

#include <string>

#include "platform/transport_failure.h"

namespace {

using Reason = tallyo::TransportFailure::Reason;

void* LoadedCurl() {
  static void* const library = dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    throw tallyo::TransportFailure(Reason::Failed, "libcurl.so.4 cannot be loaded");
  }
  return library;
}

// A function of libcurl by its name, with the type that its header declares.
template <typename Function>
Function* Loaded(const char* name) {
  void* const found = dlsym(LoadedCurl(), name);
  if (found == nullptr) {
    throw tallyo::TransportFailure(Reason::Failed, std::string("libcurl has no ") + name);
  }
  return reinterpret_cast<Function*>(found);
}

}  // namespace

namespace tallyo {

decltype(&curl_easy_setopt) CurlSetOption() {
  static auto* const function = Loaded<CURLcode(CURL*, CURLoption, ...)>("curl_easy_setopt");
  return function;
}

decltype(&curl_easy_getinfo) CurlGetInfo() {
  static auto* const function = Loaded<CURLcode(CURL*, CURLINFO, ...)>("curl_easy_getinfo");
  return function;
}

}  // namespace tallyo

// FORWARD(RESULT, NAME, (PARAMETERS), (ARGUMENTS))
#define FORWARD(result, name, parameters, arguments)                \
  result name parameters {                                          \
    static auto* const function = Loaded<result parameters>(#name); \
    return function arguments;                                      \
  }

extern "C" {

FORWARD(CURLcode, curl_global_init, (long flags), (flags))
FORWARD(void, curl_global_cleanup, (), ())
FORWARD(void, curl_free, (void* text), (text))

FORWARD(CURL*, curl_easy_init, (), ())
FORWARD(void, curl_easy_cleanup, (CURL * easy), (easy))
FORWARD(const char*, curl_easy_strerror, (CURLcode code), (code))
FORWARD(CURLHcode, curl_easy_header,
        (CURL * easy, const char* name, size_t index, unsigned origin, int request,
         curl_header** header),
        (easy, name, index, origin, request, header))

FORWARD(CURLM*, curl_multi_init, (), ())
FORWARD(CURLMcode, curl_multi_cleanup, (CURLM * multi), (multi))
FORWARD(CURLMcode, curl_multi_add_handle, (CURLM * multi, CURL* easy), (multi, easy))
FORWARD(CURLMcode, curl_multi_remove_handle, (CURLM * multi, CURL* easy), (multi, easy))
FORWARD(CURLMcode, curl_multi_perform, (CURLM * multi, int* running), (multi, running))
FORWARD(CURLMsg*, curl_multi_info_read, (CURLM * multi, int* left), (multi, left))
FORWARD(const char*, curl_multi_strerror, (CURLMcode code), (code))
FORWARD(CURLMcode, curl_multi_poll,
        (CURLM * multi, curl_waitfd* extra, unsigned count, int milliseconds, int* ready),
        (multi, extra, count, milliseconds, ready))

FORWARD(CURLU*, curl_url, (), ())
FORWARD(void, curl_url_cleanup, (CURLU * url), (url))
FORWARD(CURLUcode, curl_url_get, (CURLU * url, CURLUPart part, char** text, unsigned flags),
        (url, part, text, flags))
FORWARD(CURLUcode, curl_url_set, (CURLU * url, CURLUPart part, const char* text, unsigned flags),
        (url, part, text, flags))

}  // extern "C"
