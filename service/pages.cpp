#include "service/pages.h"

#include <string_view>

namespace tallyo::service {

namespace {

constexpr const char* kHtml = "text/html; charset=utf-8";

constexpr std::string_view kFront = R"(
<p>This server counts hits for Tallyo. A publisher registers links here; whoever follows a counting
link is counted and sent on to the file or page behind it.</p>
<ul>
<li><a href="/Tallyo/signupinfo.html">How to get an account</a></li>
<li><a href="/Tallyo/support.html">Counting links, and what to do when something does not work</a></li>
<li><a href="/Tallyo/upgradeinfo.html">More links for an account</a></li>
</ul>
)";

constexpr std::string_view kSignUp = R"(
<p>Accounts are made by the people who run this server. Write to whoever gave you its address, and
tell them:</p>
<ul>
<li>the <b>company</b> name you want to use, without commas,</li>
<li>the <b>account</b> name you would like: it becomes a part of every counting link, so a short one
without blanks serves best,</li>
<li>how many files or pages you want to count,</li>
<li>the address of the computer that Tallyo will run on: accounts can be managed only from addresses
that the server knows.</li>
</ul>
<p>When the account exists, enter company and account in Tallyo exactly as they were given to you,
capitals included, and choose <i>Save Account</i> in the <i>File</i> menu. After that you can add
links.</p>
)";

constexpr std::string_view kSupport = R"(
<h2>Counting links</h2>
<p>Each registered link has a reference, and its counting link is</p>
<pre>http://THIS-SERVER/cgi-bin/Tallyo/tallyo.cgi?acc=ACCOUNT&amp;flnk=REFERENCE</pre>
<p>Put that address on your page in the place of the file's own. A visitor who follows it is counted
and sent on at once. What looks ahead without a person, such as a prefetch or a link checker that
asks for the headers only, is not counted, and neither is the resuming of a broken download.</p>
<h2>When something does not work</h2>
<ul>
<li><b>Account not found</b>: the account's name is compared letter by letter. Check capitals and
blanks. If they are right, Tallyo runs on a computer whose address the server does not know: ask its
keeper to allow it.</li>
<li><b>Entry already existed</b>: the account has a link with this reference; choose another.</li>
<li><b>Link already existed</b>: the account counts this address already, under another
reference.</li>
<li><b>A link is not added</b>: no slot is left, the account is suspended, or the address does not
begin with http:// or https://.</li>
<li><b>Counters do not move in Tallyo</b>: it asks for them only while the account is good and has at
least one slot left. The counting itself goes on, and so do the counting links.</li>
</ul>
<p>For everything else, write to whoever runs this server.</p>
)";

constexpr std::string_view kUpgrade = R"(
<p>An account has a number of <b>slots</b>, and every registered link takes one. Removing a link
frees its slot; its count is lost with it.</p>
<p>Tallyo reads the counters only while at least one slot is left, so an account for ten links is
best given eleven. It also wants a good-through date that is still to come.</p>
<p>More slots, or a later good-through date, are given by the people who run this server. Write to
them, and name your account. The change counts from the next time that Tallyo asks; nothing has to be
registered again.</p>
)";

Answer HtmlAnswer(unsigned status, std::string_view title, std::string_view content) {
  std::string body =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
  body += title;
  body +=
      "</title>\n<style>body { font-family: sans-serif; line-height: 1.5; max-width: 40em; "
      "margin: 2em auto; padding: 0 1em; } pre { overflow-x: auto; "
      "}</style>\n</head>\n<body>\n<h1>";
  body += title;
  body += "</h1>";
  body += content;
  body += "</body>\n</html>\n";
  return {status, kHtml, std::move(body)};
}

// The page of a request that is not answered. A client takes any text with a "=" for an account's
// record, whatever the status says: there is none in here, so no element has attributes.
Answer RefusalAnswer(unsigned status, std::string_view title, std::string_view why) {
  std::string body = "<!DOCTYPE html>\n<title>";
  body += title;
  body += "</title>\n<h1>";
  body += title;
  body += "</h1>\n<p>";
  body += why;
  body += "</p>\n";
  return {status, kHtml, std::move(body)};
}

}  // namespace

Answer PageAnswer(Page page) {
  switch (page) {
    case Page::Front:
      return HtmlAnswer(200, "Tallyo", kFront);
    case Page::SignUp:
      return HtmlAnswer(200, "Getting an account", kSignUp);
    case Page::Support:
      return HtmlAnswer(200, "Help with Tallyo", kSupport);
    case Page::Upgrade:
      return HtmlAnswer(200, "More links for an account", kUpgrade);
  }
  return NotFoundAnswer();
}

Answer NotFoundAnswer() {
  return RefusalAnswer(404, "404 Not Found", "There is nothing under this address.");
}

Answer BadRequestAnswer() { return RefusalAnswer(400, "Bad Request", "This is no address."); }

Answer ForbiddenAnswer() {
  return RefusalAnswer(
      403, "Forbidden",
      "Accounts cannot be managed from where you are, and none is found from there "
      "(404). The people who run this server can allow your address.");
}

Answer MethodNotAllowedAnswer() {
  return RefusalAnswer(405, "Method Not Allowed", "This address is only to be read.");
}

Answer UnavailableAnswer() {
  return RefusalAnswer(503, "Service Unavailable",
                       "The server cannot answer this now. Try again soon.");
}

}  // namespace tallyo::service
