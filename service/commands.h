#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "service/account_record.h"
#include "service/account_store.h"
#include "service/allowed_networks.h"
#include "service/listening_socket.h"

namespace tallyo::service {

// What the program can be told to do. Every value has been checked.

struct AddAccount {
  AccountRecord record;
};

struct ListAccounts {};

struct SetAccount {
  std::string name;
  AccountChange change;
};

struct Serve {
  ListenAddress listen;
  AllowedNetworks managers;
};

// The command line asked for a text, or was wrong.
struct ShowText {
  std::string text;
};
struct WrongUsage {
  std::string why;
};

using Command = std::variant<AddAccount, ListAccounts, SetAccount, Serve, ShowText, WrongUsage>;

struct CommandLine {
  std::filesystem::path database;
  Command command;
};

}  // namespace tallyo::service
