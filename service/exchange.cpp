#include "service/exchange.h"

#include <microhttpd.h>

#include <utility>
#include <variant>

#include "service/pages.h"
#include "service/response.h"

namespace tallyo::service {

namespace {

// No request of the protocol has a body. A short one is read and dropped.
constexpr std::size_t kMostBodyBytes = std::size_t{64} * 1024;

MHD_Result NoteHeader(void* headers, MHD_ValueKind /*kind*/, const char* name,
                      std::size_t nameBytes, const char* value, std::size_t valueBytes) {
  static_cast<RequestHeaders*>(headers)->Note({name, nameBytes}, {value, valueBytes});
  return MHD_YES;
}

bool Send(MHD_Connection* connection, const Answer& answer) {
  Response response(answer.contentType, answer.body);
  response.SetHeader(MHD_HTTP_HEADER_CACHE_CONTROL, "no-store");
  if (answer.status == MHD_HTTP_METHOD_NOT_ALLOWED) {
    response.SetHeader(MHD_HTTP_HEADER_ALLOW, "GET, HEAD");
  }
  return MHD_queue_response(connection, answer.status, response.Handle()) == MHD_YES;
}

const sockaddr* PeerOf(MHD_Connection* connection) {
  const MHD_ConnectionInfo* info =
      MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
  return info == nullptr ? nullptr : info->client_addr;
}

}  // namespace

void Exchange::Begin(const char* target) {
  target_ = target;
  targetPlace_ = target;
  stage_ = Stage::Head;
  headers_ = {};
  droppedBytes_ = 0;
}

bool Exchange::Continue(MHD_Connection* connection, std::string_view method, const char* version,
                        std::size_t& bodyBytes) {
  switch (stage_) {
    case Stage::Head:
      // The library ends the connection after an answer that comes before the end of the request.
      stage_ = Stage::Body;
      return true;
    case Stage::Body:
      return bodyBytes != 0 ? DropBody(bodyBytes) : Respond(connection, method, version);
    case Stage::AtTheDesk:
      stage_ = Stage::Answered;
      return Send(connection, std::exchange(answer_, {}));
    case Stage::Answered:
      return DropBody(bodyBytes);
  }
  return false;
}

bool Exchange::DropBody(std::size_t& bytes) {
  droppedBytes_ += bytes;
  bytes = 0;
  return droppedBytes_ <= kMostBodyBytes;
}

bool Exchange::Respond(MHD_Connection* connection, std::string_view method, const char* version) {
  stage_ = Stage::Answered;
  // The version stands behind the end of the target: where that is further off than the target is
  // long, the target holds a NUL byte.
  if (version != targetPlace_ + target_.size() + 1) return Send(connection, BadRequestAnswer());
  const bool isHead = method == MHD_HTTP_METHOD_HEAD;
  if (!isHead && method != MHD_HTTP_METHOD_GET) return Send(connection, MethodNotAllowedAnswer());
  MHD_get_connection_values_n(connection, MHD_HEADER_KIND, &NoteHeader, &headers_);
  const Request request = ParseTarget(target_);
  if (const auto* link = std::get_if<FollowLink>(&request)) {
    return Follow(connection, *link, isHead);
  }
  if (const auto* page = std::get_if<ReadPage>(&request)) {
    return Send(connection, PageAnswer(page->page));
  }
  if (IsManagement(request)) return Manage(connection, request, isHead);
  return Send(connection, NotFoundAnswer());
}

bool Exchange::Follow(MHD_Connection* connection, const FollowLink& followed, bool isHead) {
  const bool counts = !isHead && headers_.IsVisit();
  const auto link = servedBy_.index.Visit(followed.account, followed.reference, counts ? 1 : 0);
  if (!link) return Send(connection, NotFoundAnswer());
  return MHD_queue_response(connection, MHD_HTTP_FOUND, link->redirect.Handle()) == MHD_YES;
}

bool Exchange::Manage(MHD_Connection* connection, const Request& request, bool isHead) {
  // A browser on an allowed machine must not be a way in for every page that it shows.
  if (!servedBy_.managers.Contains(PeerOf(connection)) || headers_.IsFromAnotherSite()) {
    return Send(connection, ForbiddenAnswer());
  }
  if (isHead && ChangesLinks(request)) return Send(connection, MethodNotAllowedAnswer());
  stage_ = Stage::AtTheDesk;
  MHD_suspend_connection(connection);
  const bool taken = servedBy_.askDesk(request, [this, connection](Answer answer) {
    answer_ = std::move(answer);
    MHD_resume_connection(connection);
  });
  if (!taken) {
    answer_ = UnavailableAnswer();
    MHD_resume_connection(connection);
  }
  return true;
}

}  // namespace tallyo::service
