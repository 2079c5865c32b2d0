#include <benchmark/benchmark.h>

#include "bench/made_links.h"
#include "links/link_index.h"
#include "links/link_record.h"
#include "links/link_scanner.h"
#include "stats/daily_files.h"
#include "stats/statistics_reply.h"
#include "text/two_digits.h"

namespace tallyo::bench {
namespace {

void SplitOneRecord(benchmark::State& state) {
  const std::string record = RecordOf(4711);
  for (auto _ : state) {
    benchmark::DoNotOptimize(SplitRecord(record));
  }
}
BENCHMARK(SplitOneRecord);

void LookUpOneLink(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const LinkIndex index(Records(count));
  LinkFields fields;
  int i = 0;
  for (auto _ : state) {
    i = i % count + 1;
    benchmark::DoNotOptimize(
        index.Find(fields, "manual-" + std::to_string(i) + ".pdf", FindBy::Reference));
  }
}
BENCHMARK(LookUpOneLink)->Arg(100)->Arg(1000)->Arg(10000);

void BuildTheIndex(benchmark::State& state) {
  const std::vector<std::string> records = Records(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(LinkIndex(records));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BuildTheIndex)->Arg(100)->Arg(1000)->Arg(10000);

void ReadAReply(benchmark::State& state) {
  const std::string text = Reply(static_cast<int>(state.range(0)), 123456);
  for (auto _ : state) {
    StatisticsReply reply(text);
    while (reply.Next() == StatisticsReply::Step::Record) {
      benchmark::DoNotOptimize(reply.Reference());
    }
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ReadAReply)->Arg(100)->Arg(1000)->Arg(10000);

// A month in which every hour had hits; the last hour counts on.
void AddToADailyFile(benchmark::State& state) {
  std::string content;
  for (int day = 1; day <= 30; ++day) {
    for (int hour = 0; hour < 24; ++hour) {
      content += TwoDigits(day) + TwoDigits(hour) + "17\r\n";
    }
  }
  for (auto _ : state) {
    benchmark::DoNotOptimize(WithHitsAdded(content, "3023", 5));
  }
}
BENCHMARK(AddToADailyFile);

// Ten megabytes of a page, by what its maker repeats.
void ScanAPage(benchmark::State& state, const std::string& repeated, const std::string& end) {
  std::string page;
  while (page.size() < 10'000'000) {
    page += repeated;
  }
  page += end;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ScanLinks(page, "http://files.example/"));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}
BENCHMARK_CAPTURE(
    ScanAPage, links,
    "<li><A HREF=\"../pub/manual-4711.pdf\">The manual of the 4711, 3rd ed.</A></li>\n"
    "<p>Some words about it that no one reads.</p>\n",
    "");
BENCHMARK_CAPTURE(ScanAPage, anchorsThatNeverEnd, "<A HREF=", "");
BENCHMARK_CAPTURE(ScanAPage, anchorsThatEndTogether, "<A HREF=", ">");
BENCHMARK_CAPTURE(ScanAPage, parentsWithoutEnd, "<A HREF=../", "../>");

}  // namespace
}  // namespace tallyo::bench
