#pragma once

#include <functional>
#include <string>

#include "bench/table/line.h"
#include "bench/table/place.h"

namespace tallyo::bench {

// Takes a line that is done; its number is given by the taker.
using Report = std::function<void(Line)>;

// Each measures one work and reports its lines. What cannot be measured is a std::exception; the
// lines reported before it stand.
void MeasureRefresh(const Place& place, const Report& report);
void MeasureGrowth(const Place& place, const Report& report);
void MeasureConsole(const Place& place, const Report& report);
void MeasureWindowStart(const Place& place, const Report& report);
void MeasureWindowIdle(const Place& place, const Report& report);
void MeasureMonthChoice(const Place& place, const Report& report);
void MeasurePageScan(const Place& place, const Report& report);
void MeasureSettingWrites(const Place& place, const Report& report);
void MeasureRedirects(const Place& place, const Report& report);
void MeasureServiceMemory(const Place& place, const Report& report);
void MeasureSizes(const Place& place, const Report& report);
void MeasureTraffic(const Place& place, const Report& report);

}  // namespace tallyo::bench
