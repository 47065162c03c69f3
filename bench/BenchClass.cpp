// What a class set costs: a problem for each of so many students, by the wall clock, with and without its pages.

#include "FileSystem.h"
#include "NativeFileSystem.h"
#include "Platform.h"
#include "QtPaper.h"
#include "modClassFiles.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include <QGuiApplication>

#include <unistd.h>

namespace strutwright {
namespace {

/// Pratt trusses of eight bays that differ in span and load.
ClassPlan PlanFor(int students) {
  const TrussFamily* family = FamilyNamed("pratt");
  ClassPlan plan;
  plan.source = {std::string(family->title), {}, family, StandardTexts(*family)};
  plan.variations = {ReadVariation("span:18..30:1"), ReadVariation("load:10..40:5")};
  plan.asks = {ReadAsk("forces:7,9"), ReadAsk("reactions"), ReadAsk("displacement:4y")};
  for (int student = 1; student <= students; ++student) plan.students.push_back(std::to_string(student));
  return plan;
}

void ClassSet(benchmark::State& state, const char* formats) {
  const ClassPlan plan = PlanFor(static_cast<int>(state.range(0)));
  const std::string folder =
      (std::filesystem::temp_directory_path() / ("bench_class-" + std::to_string(::getpid()))).string();
  for ([[maybe_unused]] auto step : state) {
    MakeClassSet(plan, ReadClassFormats(formats), folder);
    state.PauseTiming();
    std::filesystem::remove_all(folder);
    state.ResumeTiming();
  }
}

BENCHMARK_CAPTURE(ClassSet, Everything, "pdf,html,moodle,tex,stw,csv")
    ->Arg(40)
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClassSet, Models, "stw,csv")->Arg(40)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  strutwright::NativeFileSystem files;
  strutwright::QtPaper paper;
  strutwright::ThePlatform().files = &files;
  strutwright::ThePlatform().paper = &paper;
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
