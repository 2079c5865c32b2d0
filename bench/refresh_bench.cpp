#include <benchmark/benchmark.h>

#include "bench/made_links.h"
#include "tests/support/test_program.h"
#include "text/two_digits.h"

namespace tallyo::bench {
namespace {

// A started program with so many links, whose daily files are not due.
void Prepare(test::TestProgram& t, int count) {
  t.GiveAccount(32767);
  t.Store().AsOneChange([&] {
    for (int i = 1; i <= count; ++i) {
      t.SetRecord(TwoDigits(i), RecordOf(i));
    }
  });
  t.GiveCounters(Reply(count, 7));
  t.Set(names::kPrevCheck, MonthDayYear(t.clock.Now().date) + " 43195");
  t.Start();
}

// One whole refresh over loopback: account check, counters, rows, traffic totals, snapshot.
void Refresh(benchmark::State& state) {
  test::TestProgram t;
  Prepare(t, static_cast<int>(state.range(0)));
  for (auto _ : state) {
    if (t.P().refresh.RefreshStatistics() != RefreshOutcome::Completed) {
      state.SkipWithError("the refresh did not come to its end");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Refresh)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

// A session of the console: start, one refresh, quit.
void Session(benchmark::State& state) {
  test::TestProgram t;
  Prepare(t, static_cast<int>(state.range(0)));
  t.P().refresh.RefreshStatistics();  // leaves counters that do not grow any more
  t.P().Quit();
  for (auto _ : state) {
    t.Start();
    benchmark::DoNotOptimize(t.P().refresh.RefreshStatistics());
    t.P().Quit();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Session)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tallyo::bench
