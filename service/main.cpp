#include <iostream>

#include "service/run_program.h"
#include "service/stop_signals.h"

int main(int argc, char** argv) {
  // Before any thread starts: a signal must find no thread that does not hold it back.
  const tallyo::service::StopSignals stopSignals;
  return tallyo::service::RunProgram(argc, argv, std::cout, std::cerr,
                                     [&stopSignals] { stopSignals.Wait(); });
}
