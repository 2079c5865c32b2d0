#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "service/allowed_networks.h"
#include "service/database.h"
#include "service/hit_ledger.h"
#include "service/http_server.h"
#include "service/link_index.h"
#include "service/listening_socket.h"
#include "service/management_desk.h"
#include "service/store_thread.h"

namespace tallyo::service {

struct ServiceOptions {
  std::filesystem::path database;  // made where it is missing
  ListenAddress listen;
  AllowedNetworks managers = AllowedNetworks::Loopback();
};

// The service from its making to Stop. Throws DatabaseError, CannotListen or CannotServe where it
// cannot be made.
class Service {
 public:
  // report gets a line when the database fails and when it works again; not from the caller's
  // thread.
  Service(const ServiceOptions& options, std::function<void(const std::string&)> report);
  ~Service();
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  [[nodiscard]] const std::string& Url() const { return url_; }

  // Takes no more requests and stores every hit; false where hits could not be stored.
  bool Stop();

 private:
  void Round();
  // False where the database fails; the first of several failures is reported.
  bool Try(const std::function<void()>& work);
  [[nodiscard]] bool AskDesk(const Request& request, AnswerDone done);

  const std::function<void(const std::string&)> report_;
  Database database_;
  LinkIndex index_;
  HitLedger ledger_;
  ManagementDesk desk_;
  bool failing_ = false;
  bool stopped_ = false;
  ListeningSocket socket_;
  const std::string url_;
  StoreThread storeThread_;
  HttpServer server_;
};

}  // namespace tallyo::service
