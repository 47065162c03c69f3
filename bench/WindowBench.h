#pragma once

#include "SilentBoxes.h"

#include <fstream>

#include <QApplication>

#include <unistd.h>

#include <benchmark/benchmark.h>

namespace strutwright {

/// What of this process is in memory, in MB.
inline double ResidentMegabytes() {
  std::ifstream status("/proc/self/statm");
  double pages = 0;
  status >> pages >> pages;
  return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

/// Runs the benchmarks of a program with windows.
inline int RunBenchmarks(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

} // namespace strutwright
