#include "service/service.h"

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

#include "service/schema.h"

namespace tallyo::service {

namespace {

constexpr std::chrono::milliseconds kFlushPause{500};
constexpr rlim_t kMostConnections = 8192;
constexpr rlim_t kOtherFiles = 64;  // database, sockets of the library
constexpr int kLastFlushAttempts = 6;

// Raises the number of files that the process may open as far as the system lets it, and returns
// how many connections fit in.
unsigned RoomForConnections() {
  rlimit files{};
  if (getrlimit(RLIMIT_NOFILE, &files) != 0) return 512;
  const rlim_t wanted = kMostConnections + kOtherFiles;
  if (files.rlim_cur < wanted) {
    files.rlim_cur = std::min(files.rlim_max, wanted);
    setrlimit(RLIMIT_NOFILE, &files);
    getrlimit(RLIMIT_NOFILE, &files);
  }
  const rlim_t room = files.rlim_cur > 2 * kOtherFiles ? files.rlim_cur - kOtherFiles : kOtherFiles;
  return static_cast<unsigned>(std::min(room, kMostConnections));
}

}  // namespace

Service::Service(const ServiceOptions& options, std::function<void(const std::string&)> report)
    : report_(std::move(report)),
      database_(OpenDatabase(options.database, Database::WhenMissing::Create)),
      ledger_(database_, index_),
      desk_(database_, index_),
      socket_(options.listen),
      url_(socket_.Address().Url()),
      storeThread_([this] { Round(); }, kFlushPause),
      server_(socket_,
              {index_,
               [this](const Request& request, AnswerDone done) {
                 return AskDesk(request, std::move(done));
               },
               options.managers},
              RoomForConnections()) {}

Service::~Service() { Stop(); }

bool Service::AskDesk(const Request& request, AnswerDone done) {
  return storeThread_.Give([this, request, done = std::move(done)] { done(desk_.Serve(request)); });
}

void Service::Round() {
  Try([this] {
    ledger_.Refresh();
    ledger_.Flush();
  });
}

bool Service::Try(const std::function<void()>& work) {
  try {
    work();
    if (std::exchange(failing_, false)) report_("the database works again");
    return true;
  } catch (const std::exception& error) {
    if (!std::exchange(failing_, true)) {
      report_("hits are kept in memory, the database cannot be used: " + std::string(error.what()));
    }
    return false;
  }
}

bool Service::Stop() {
  if (std::exchange(stopped_, true)) return true;
  // The order matters: no connection may wait at the desk while the server ends, and no hit may
  // come after the last storing.
  server_.StopListening();
  storeThread_.CloseJobs();
  server_.Stop();
  storeThread_.End();
  for (int attempt = 0; attempt < kLastFlushAttempts; ++attempt) {
    if (Try([this] { ledger_.Flush(); })) return true;
  }
  return false;
}

}  // namespace tallyo::service
