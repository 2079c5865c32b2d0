#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "bench/table/file_text.h"
#include "bench/table/load.h"
#include "bench/table/measure.h"
#include "bench/table/process_readings.h"
#include "bench/table/rounds_in_turn.h"
#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr int kProcessor = 0;  // of the servers; the load has the other one
constexpr std::chrono::seconds kPatience{30};
constexpr std::chrono::seconds kRun{3};
constexpr int kLinks = 1'000;
constexpr int kManyLinks = 100'000;
constexpr double kWantedVisits = 10e6;
constexpr std::chrono::seconds kTimeForVisits{70};
constexpr std::chrono::seconds kStep{10};
constexpr std::chrono::seconds kStoring{2};  // the service stores hits within a second
constexpr int kPipelined = 20;

std::string UrlOf(const std::string& port) { return "http://127.0.0.1:" + port + "/"; }

// tallyo-service with so many links, until the end of its life.
class Served {
 public:
  Served(const Place& place, int links)
      : database_(place.folder / ("links-" + std::to_string(links) + ".db")),
        process_(MakeAndStart(place, links)),
        url_(process_.HearLine(kPatience)) {}

  [[nodiscard]] const std::string& Url() const { return url_; }
  [[nodiscard]] pid_t Number() const { return process_.Number(); }
  [[nodiscard]] double Megabytes() const { return ResidentMegabytes(process_.Number()); }

 private:
  [[nodiscard]] ChildProcess MakeAndStart(const Place& place, int links) const {
    RunToEnd(place,
             {.words = {place.floors / "make-service-links", database_, std::to_string(links)}});
    return Start(place, {.words = {place.programs / "tallyo-service", "--database", database_,
                                   "serve", "--listen", "127.0.0.1:0"},
                         .processor = kProcessor});
  }

  std::filesystem::path database_;
  ChildProcess process_;
  std::string url_;
};

// What a server spends from now on.
class Cost {
 public:
  explicit Cost(pid_t server) : server_(server), before_(ProcessorSeconds(server)) {}

  [[nodiscard]] double MicrosecondsFor(double visits) const {
    return (ProcessorSeconds(server_) - before_) * 1e6 / visits;
  }

 private:
  pid_t server_;
  double before_;
};

// A port that nobody listens at just now.
std::string FreePort() {
  const int probe = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  const bool bound = ::bind(probe, reinterpret_cast<const sockaddr*>(&address), size) == 0 &&
                     ::getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size) == 0;
  ::close(probe);
  if (!bound) {
    throw std::runtime_error("no port is free");
  }
  return std::to_string(ntohs(address.sin_port));
}

// nginx in one process, with everything that it writes in the folder of the work.
Command NginxAt(const Place& place, const std::string& port) {
  const std::filesystem::path configuration = place.folder / "nginx.conf";
  std::string temporary;
  for (const char* const kind : {"client_body", "proxy", "fastcgi", "uwsgi", "scgi"}) {
    temporary += std::string(kind) + "_temp_path nginx-" + kind + ";\n";
  }
  WriteText(configuration,
            "daemon off;\nmaster_process off;\npid nginx.pid;\n"
            "events { worker_connections 1024; }\n"
            "http {\naccess_log off;\nkeepalive_requests 1000000000;\n" +
                temporary + "server {\nlisten 127.0.0.1:" + port +
                ";\nreturn 302 http://files.example/pub/manual-1.pdf;\n}\n}\n");
  return {
      .words = {"/usr/sbin/nginx", "-p", place.folder, "-e", "nginx-errors", "-c", configuration},
      .processor = kProcessor};
}

std::string Millions(double visits) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f", std::floor(visits / 1e5) / 10);
  return std::string(text.data()) + " million";
}

void ReportMemory(const Report& report, const std::string& when, double megabytes) {
  report({.work = "service memory, " + when + " (MB)", .ours = megabytes});
}

}  // namespace

void MeasureRedirects(const Place& place, const Report& report) {
  const Load load(place, kLinks, 1);
  const Served ours(place, kLinks);
  ChildProcess floor =
      Start(place, {.words = {place.floors / "redirect-floor"}, .processor = kProcessor});
  const std::string floorUrl = UrlOf(floor.HearLine(kPatience));
  std::vector<Pair> costs;  // microseconds of the servers
  const Pair rate = InTurn(
      [&] {
        const Cost cost(ours.Number());
        const Load::Result result = load.Run(ours.Url(), kRun);
        costs.push_back({.ours = cost.MicrosecondsFor(result.visits)});
        return result.visitsPerSecond;
      },
      [&] {
        const Cost cost(floor.Number());
        const Load::Result result = load.Run(floorUrl, kRun);
        costs.back().floor = cost.MicrosecondsFor(result.visits);
        return result.visitsPerSecond;
      });
  report({.work = "service, redirects in a second, counted, 1,000 links",
          .ours = rate.ours,
          .floor = rate.floor,
          .goal = 0.8,
          .smaller = false});
  costs.erase(costs.begin());
  const Pair cost = MiddlePair(std::move(costs));
  report({.work = "the same, processor time of the server for each (us)",
          .ours = cost.ours,
          .floor = cost.floor});
  const std::string port = FreePort();
  const ChildProcess nginx = Start(place, NginxAt(place, port));
  place.interruption.Pause(std::chrono::seconds(1));
  report({.work = "the same against nginx (return 302) as the floor",
          .ours = rate.ours,
          .floor = load.Run(UrlOf(port), kRun).visitsPerSecond,
          .smaller = false});
}

void MeasureServiceMemory(const Place& place, const Report& report) {
  ReportMemory(report, "no links", Served(place, 0).Megabytes());
  const Served served(place, kManyLinks);
  ReportMemory(report, "100,000 links", served.Megabytes());
  const Load load(place, kManyLinks, kPipelined);
  double visits = 0;
  const MonotonicTime until = std::chrono::steady_clock::now() + kTimeForVisits;
  const auto visit = [&](std::chrono::seconds time) {
    visits += load.Run(served.Url(), time).visits;
    place.interruption.Pause(kStoring);
    ReportMemory(report, "100,000 links, after " + Millions(visits) + " hits", served.Megabytes());
  };
  visit(kRun);
  while (visits < kWantedVisits && std::chrono::steady_clock::now() < until) {
    visits += load.Run(served.Url(), kStep).visits;
  }
  visit(kRun);
}

}  // namespace tallyo::bench
