// Makes the database of a service with COUNT links, 25,000 in each of the accounts bench0, bench1,
// ... Usage: make-service-links DATABASE COUNT

#include <cstdlib>
#include <iostream>
#include <string>

#include "service/schema.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Usage: make-service-links DATABASE COUNT\n";
    return 2;
  }
  using namespace tallyo::service;
  constexpr int kLinksOfOne = 25'000;
  constexpr int kBusyTimeoutMs = 5000;
  Database database = OpenDatabase(argv[1], Database::WhenMissing::Create, kBusyTimeoutMs);
  Transaction transaction(database, Transaction::Kind::Write);
  Statement account(database,
                    "INSERT INTO accounts (id, name, company, max_links, opened, good_through) "
                    "VALUES (?, ?, 'Bench', 32767, '2014-01-15', '2099-12-31')");
  Statement link(database, "INSERT INTO links (account_id, reference, url) VALUES (?, ?, ?)");
  for (int i = 0; i < std::atoi(argv[2]); ++i) {
    const int owner = i / kLinksOfOne;
    if (i % kLinksOfOne == 0) {
      const std::string name = "bench" + std::to_string(owner);
      account.Bind(1, std::int64_t{owner} + 1).Bind(2, name).Run();
    }
    const std::string reference = "manual-" + std::to_string(i) + ".pdf";
    const std::string url = "http://files.example/pub/" + reference;
    link.Bind(1, std::int64_t{owner} + 1).Bind(2, reference).Bind(3, url).Run();
  }
  transaction.Commit();
}
