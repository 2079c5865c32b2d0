#include "stats/service_requests.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/transport_failure.h"
#include "tests/support/monitored_program.h"

namespace tallyo {
namespace {

using Reason = TransportFailure::Reason;

class ServiceRequestsTest : public testing::Test {
 protected:
  ServiceRequestsTest() {
    t_.Start();
    t_.Form().Label8.OnChange = [this] {
      ++reports_;
      requestsAtReport_ = t_.server.Requests().size();
    };
  }

  // By path on the service, or by whole address.
  std::string Fetch(const std::string& path) {
    return t_.P().requests.FetchDocument(path.starts_with("/") ? t_.server.Url(path) : path);
  }
  std::optional<Reason> FailureOf(const std::string& path) {
    try {
      Fetch(path);
    } catch (const TransportFailure& failure) {
      return failure.Why();
    }
    return std::nullopt;
  }
  std::int32_t Timeout() { return t_.P().requests.TransferTimeout(); }
  // The status label and the rows of the account and of what else there is.
  std::string Shown() {
    return t_.Form().Label8.Caption() + "; " + t_.Detail(detail::kAccountStatus) + "; " +
           t_.Detail(detail::kOtherStatus);
  }

  test::MonitoredProgram t_;
  int reports_ = 0;  // assignments of the status label
  std::size_t requestsAtReport_ = 0;
};

TEST_F(ServiceRequestsTest, ReportTheBeginningBeforeAnythingIsSentAndTheFailure) {
  Fetch("/missing");
  EXPECT_EQ(reports_, 1);
  EXPECT_EQ(requestsAtReport_, 0U);
  EXPECT_EQ(Shown(), "Request Time out; Unknown; Not connected");
  Fetch("/missing");
  EXPECT_EQ(Timeout(), 62) << "one second more for each transfer until one fails";
  for (const char* path : {"/my\nsite", "file:///etc/passwd", ""}) {
    EXPECT_EQ(FailureOf(path), Reason::BadAddress) << path;
  }
  EXPECT_EQ(Timeout(), 62) << "what cannot be sent is no transfer";
  t_.server.RefuseConnections();
  EXPECT_EQ(FailureOf("/missing"), Reason::Failed);
  EXPECT_EQ(Timeout(), 60);
  EXPECT_EQ(reports_, 4) << "one for the beginning, one for the failure";
  EXPECT_EQ(Shown(), "Request Time out; Unknown; Connecting");
}

TEST_F(ServiceRequestsTest, RefuseASecondDocumentInsideTheFirst) {
  t_.server.Answer("/slow", "first");
  for (const std::size_t sent : {0U, 2U}) {  // while it is reported, while it is waited for
    t_.server.Hold("/slow");
    std::optional<Reason> nested;
    t_.DuringRequest(sent, [&] { nested = FailureOf("/second"); });
    EXPECT_EQ(Fetch("/slow"), "first");
    EXPECT_EQ(nested, Reason::Busy);
  }
  EXPECT_EQ(t_.server.Requests().size(), 2U);
  EXPECT_EQ(reports_, 2);
  EXPECT_EQ(Timeout(), 62);
}

TEST_F(ServiceRequestsTest, ReportNoErrorForATransferThatIsGivenUp) {
  t_.server.Hold("/slow");
  t_.DuringRequest(1, [&] { t_.P().requests.CancelTransfers(); });
  EXPECT_EQ(FailureOf("/slow"), Reason::Cancelled);
  EXPECT_EQ(reports_, 1);
  EXPECT_EQ(Timeout(), 1);
  EXPECT_EQ(Shown(), "Request Time out; Unknown; Not connected");
  t_.server.Answer("/next", "next");
  EXPECT_EQ(Fetch("/next"), "next");
}

}  // namespace
}  // namespace tallyo
