#include "tests/force/running_service.h"

#include <csignal>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "tests/service/raw_client.h"

namespace tallyo::force {

RunningService::RunningService(std::filesystem::path database) : database_(std::move(database)) {
  const Ending added =
      RunToEnd({ProgramFile("tallyo-service"), "--database", database_, "account", "add", "acme",
                "--company", "Acme", "--max", "1000", "--exp", "12/31/2099"});
  if (added.exitStatus != 0) throw std::runtime_error("no account: " + added.Complaint());
  Start();
}

void RunningService::Start(const std::vector<std::string>& serveWords) {
  std::vector<std::string> words{
      ProgramFile("tallyo-service"), "--database", database_, "serve", "--listen", "127.0.0.1:0"};
  words.insert(words.end(), serveWords.begin(), serveWords.end());
  process_ = std::make_unique<ChildProcess>(words);
  url_ = process_->ReadLine();
  if (!url_.starts_with("http://")) {
    throw std::runtime_error("the service has not started: " + process_->Wait().Complaint());
  }
  url_.pop_back();
  port_ = service::PortOf(url_);
  url_ += '/';
}

Ending RunningService::End(int signal) {
  process_->Signal(signal);
  Ending ending = process_->Wait();
  process_.reset();
  return ending;
}

std::string RunningService::Manage(const std::string& query) const {
  return service::Ask(port_, "/cgi-bin/Tallyo/devstats.cgi?account=" + query).body;
}

std::string RunningService::Add(const std::string& reference, const std::string& link) const {
  return Manage("acmef.txt&action=add&fryname=" + reference + "&link=" + link);
}

void RunningService::Remove(const std::string& reference) const {
  static_cast<void>(Manage("acmef.txt&action=del&fryname=" + reference + "&link=x"));
}

std::map<std::string, std::int64_t> RunningService::Counters() const {
  std::map<std::string, std::int64_t> counters;
  std::istringstream reply(Manage("acme.txt&action=show"));
  for (std::string line; std::getline(reply, line);) {
    const std::size_t blank = line.find(' ');
    counters[line.substr(blank + 1)] = std::stoll(line.substr(3, blank - 3));
  }
  return counters;
}

bool RunningService::Visit(const std::string& reference) const {
  return service::Ask(port_, "/cgi-bin/Tallyo/tallyo.cgi?acc=acme&flnk=" + reference).status == 302;
}

}  // namespace tallyo::force
