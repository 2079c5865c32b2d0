#include "service/request_headers.h"

#include <gtest/gtest.h>

namespace tallyo::service {
namespace {

TEST(RequestHeaders, TellVisitsFromWhatOnlyLooksAheadOrResumes) {
  struct Case {
    const char* name;
    const char* value;
    bool isVisit;
  };
  for (const Case& c : {
           Case{"Purpose", "prefetch", false},
           Case{"purpose", "Prefetch", false},
           Case{"Sec-Purpose", "prefetch;prerender", false},
           Case{"X-Moz", "prefetch", false},
           Case{"Purpose", "reading", true},
           Case{"Range", "bytes=0-", true},
           Case{"Range", "bytes=0-499, 1000-", true},
           Case{"range", "Bytes = 000-1", true},
           Case{"Range", "bytes=1-", false},
           Case{"Range", "bytes=01-", false},
           Case{"Range", "bytes=-500", false},
           Case{"Range", "bytes=0", false},
           Case{"Range", "items=0-", false},
           Case{"Range", "", false},
           Case{"User-Agent", "prefetch", true},
       }) {
    RequestHeaders headers;
    headers.Note(c.name, c.value);
    headers.Note("Accept", "*/*");
    EXPECT_EQ(headers.IsVisit(), c.isVisit) << c.name << ": " << c.value;
  }
}

}  // namespace
}  // namespace tallyo::service
