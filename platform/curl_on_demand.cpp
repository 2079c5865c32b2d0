// libcurl brings some thirty libraries along, and loading them takes longer than most commands that
// fetch nothing. So the programs are not linked with it: the functions of it that they call stand
// here, and load it with their first call.

#include <curl/curl.h>
#include <dlfcn.h>

#include <cstdarg>
#include <string>

#include "platform/transport_failure.h"

namespace {

using Reason = tallyo::TransportFailure::Reason;

// The variable arguments of libcurl are handed on as one pointer.
static_assert(sizeof(long) == sizeof(void*) && sizeof(curl_off_t) == sizeof(void*));

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

// The header's checks of arguments would stand in the way of the definitions.
#undef curl_easy_setopt
#undef curl_easy_getinfo

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

// NOLINTBEGIN(cert-dcl50-cpp,cppcoreguidelines-pro-type-vararg): libcurl has them so.
CURLcode curl_easy_setopt(CURL* easy, CURLoption option, ...) {
  static auto* const function = Loaded<CURLcode(CURL*, CURLoption, ...)>("curl_easy_setopt");
  std::va_list arguments;
  va_start(arguments, option);
  void* const value = va_arg(arguments, void*);
  va_end(arguments);
  return function(easy, option, value);
}

CURLcode curl_easy_getinfo(CURL* easy, CURLINFO info, ...) {
  static auto* const function = Loaded<CURLcode(CURL*, CURLINFO, ...)>("curl_easy_getinfo");
  std::va_list arguments;
  va_start(arguments, info);
  void* const place = va_arg(arguments, void*);
  va_end(arguments);
  return function(easy, info, place);
}
// NOLINTEND(cert-dcl50-cpp,cppcoreguidelines-pro-type-vararg)

}  // extern "C"
