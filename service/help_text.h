#pragma once

namespace tallyo::service {

inline constexpr const char* kDescription =
    "A small hit counter to host yourself, for the Tallyo client. Counting links lead visitors on\n"
    "to a file or page and count them; Tallyo registers the links and shows the counts.";

inline constexpr const char* kExamples = R"(Examples:
  Make an account for ten links (eleven, for Tallyo wants one slot left), and serve it:
    tallyo-service --database hits.db account add mysite --company "Acme Widgets" \
        --max 11 --exp 12/31/2030
    tallyo-service --database hits.db serve

  Be there for visitors, and let the computers at home manage their links:
    tallyo-service --database hits.db serve --listen 0.0.0.0:80 \
        --manage-from 127.0.0.0/8 --manage-from 192.168.1.0/24

  Give more time, or stop an account from adding links, also while it is being served:
    tallyo-service --database hits.db account set mysite --exp 12/31/2032
    tallyo-service --database hits.db account set mysite --ban yes

Visitors follow http://HOST/cgi-bin/Tallyo/tallyo.cgi?acc=ACCOUNT&flnk=REFERENCE.
A banned or expired account's links still lead on and still count: the client refuses to work
with such an account, its visitors are not made to pay for it. A link is removed by its reference.
Ends with 0 when done, 1 when refused or failed, 2 after wrong usage.)";

inline constexpr const char* kServeNotes = R"(The first line printed is the address of the service.
SIGTERM, SIGINT and SIGHUP store every count and end it.

Whoever asks from an address in --manage-from may read every account's terms and counts and change
its links; there is no password. Behind a reverse proxy on this machine every visitor comes from
127.0.0.1: let the proxy pass on /cgi-bin/Tallyo/tallyo.cgi and the /Tallyo/*.html pages only.)";

}  // namespace tallyo::service
