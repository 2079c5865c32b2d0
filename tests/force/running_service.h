#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/force/child_process.h"

namespace tallyo::force {

// A real tallyo-service on a free port, with the account "acme" of the company "Acme".
class RunningService {
 public:
  // Throws runtime_error where it does not start.
  explicit RunningService(std::filesystem::path database);

  // Starts it anew, on another port, after it was ended. serveWords: further words behind "serve".
  void Start(const std::vector<std::string>& serveWords = {});
  // Ends it with a signal.
  Ending End(int signal);

  [[nodiscard]] const std::string& Url() const { return url_; }
  [[nodiscard]] std::uint16_t Port() const { return port_; }
  [[nodiscard]] const std::filesystem::path& Database() const { return database_; }

  // The body of the answer, or "" where none came. Management as a client asks for it.
  [[nodiscard]] std::string Manage(const std::string& query) const;
  [[nodiscard]] std::string Add(const std::string& reference, const std::string& link) const;
  void Remove(const std::string& reference) const;
  [[nodiscard]] std::map<std::string, std::int64_t> Counters() const;

  // Whether the visitor was led on.
  [[nodiscard]] bool Visit(const std::string& reference) const;

 private:
  std::filesystem::path database_;
  std::unique_ptr<ChildProcess> process_;
  std::string url_;
  std::uint16_t port_ = 0;
};

}  // namespace tallyo::force
