#pragma once

#include <filesystem>
#include <string>

#include "app/program.h"
#include "platform/curl_transfer.h"
#include "platform/posix_files.h"
#include "platform/system_clock.h"
#include "settings/sqlite_store.h"

namespace tallyo::bench {

// Stores the made-up account and so many made-up links for a program to start on.
void StoreLinks(const std::filesystem::path& appDir, int count);

// The real program on the real machine, with nobody before it. It is not started yet.
class BenchProgram {
 public:
  BenchProgram(const std::filesystem::path& appDir, const std::string& serviceUrl);

 private:
  class NoEvents final : public EventPump {
   protected:
    void RunPending() override {}
  };
  class NoBoxes final : public MessageBoxes {
   public:
    using MessageBoxes::MessageBoxes;

   protected:
    // Ends the measuring: nothing that is measured asks or tells anything.
    BoxAnswer Ask(const MessageBox& box) override;
  };
  class NoShell final : public Shell {
   public:
    void Open(const std::filesystem::path& /*document*/) override {}
    void RunAtLogon(bool /*run*/) override {}
  };

  SystemClock clock_;
  PosixFiles files_;
  SqliteStore store_;
  CurlTransfer transfer_{"Tallyo/bench"};
  NoEvents pump_;
  NoBoxes boxes_{pump_};
  NoShell shell_;

 public:
  Program program;
};

}  // namespace tallyo::bench
