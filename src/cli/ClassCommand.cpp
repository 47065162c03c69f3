#include "ClassCommands.h"
#include "ClassFault.h"
#include "ClassTexts.h"
#include "CommandLine.h"
#include "Interrupts.h"
#include "LongWork.h"
#include "ModelInput.h"
#include "ModelSession.h"
#include "Output.h"
#include "Picture.h"
#include "Platform.h"
#include "WorkerProcesses.h"
#include "modClassFiles.h"
#include "modModelStore.h"
#include "modPlaces.h"
#include "modStudents.h"

#include <cmath>
#include <iostream>
#include <ostream>
#include <set>

namespace strutwright {

namespace {

/// What stands before a message where there is no model.
constexpr const char* ClassName = "class";

ClassSource FamilySource(const ClassRequest& request) {
  const TrussFamily* family = FamilyNamed(request.family);
  if (family == nullptr) throw ClassFault("--family must be one of " + FamilyNames());
  ClassSource source{std::string(family->title), {}, family, StandardTexts(*family)};
  for (const FieldDescription& each : TrussFields) {
    const auto given = request.familyTexts.find(std::string(each.option));
    if (given != request.familyTexts.end()) source.texts[each.field] = given->second;
  }
  const auto support = request.familyTexts.find("support");
  if (support != request.familyTexts.end()) source.texts.support = support->second;
  return source;
}

/// The model that is open.
ClassSource OpenSource(const std::string& file) {
  return {ValidText(LastComponent(file)), ModelInTables(), nullptr, {}};
}

std::vector<std::string> StudentsOf(const std::string& text, std::istream& in) {
  if (const auto count = WholeNumber(text)) return NumberedStudents(*count);
  try {
    return ReadStudents(ReadInput(text, in));
  } catch (const FileError& error) {
    throw ClassFault("The list " + InQuotes(text) + " can't be read: " + error.what());
  }
}

ClassPlan PlanOf(const ClassRequest& request, std::istream& in) {
  ClassPlan plan;
  plan.source = request.family.empty() ? OpenSource(request.model) : FamilySource(request);
  for (const std::string& text : request.vary) plan.variations.push_back(ReadVariation(text));
  for (const std::string& text : request.ask) plan.asks.push_back(ReadAsk(text));
  plan.students = StudentsOf(request.students, in);
  plan.seed = request.seed;
  plan.percent = request.percent;
  return plan;
}

/// Stops long work at Ctrl-C, and says on a terminal how far it is.
class StoppableWork : public Progress {
 public:
  explicit StoppableWork(std::ostream& err)
      : Err(err), IsTerminal(&err == &std::cerr && strutwright::IsTerminal(ErrorOutput)) {
    ThePlatform().progress = this;
  }
  ~StoppableWork() override { ThePlatform().progress = nullptr; }
  StoppableWork(const StoppableWork&) = delete;
  StoppableWork& operator=(const StoppableWork&) = delete;

  bool ShowProgress(const std::string& text, double fraction) override {
    if (IsTerminal) Err << EraseLine << text << " ... " << std::lround(100 * fraction) << " %" << std::flush;
    return Signal() == 0;
  }
  void EndProgress() override {
    if (IsTerminal) Err << EraseLine << std::flush;
  }

  /// What the program was stopped with; 0 where it was not.
  int Signal() const { return Caught.Caught(); }

 private:
  static constexpr const char* EraseLine = "\r\033[K";

  std::ostream& Err;
  bool IsTerminal;
  Interrupts Caught;
};

} // namespace

int MakeClass(const ClassRequest& request, std::istream& in, std::ostream& out, std::ostream& err) {
  ModelSession session(request.family.empty() ? request.model : ClassName, err);
  if (request.family.empty() && !session.Open(in)) return ExitUsage;
  const StoppableWork work(err);
  try {
    const std::set<ClassFormat> formats = ReadClassFormats(request.formats);
    const ClassPlan plan = PlanOf(request, in);
    PreparePages();
    MakeClassSet(plan, formats, request.folder);
    out << ValidText(request.folder) << ": " << CountOf(plan.students.size(), "student") << ", seed " << plan.seed
        << '\n';
    return work.Signal() == 0 ? ExitOk : ExitStopped + work.Signal();
  } catch (const WorkCancelled&) {
    session.Report("Stopped: nothing was written");
    return ExitStopped + work.Signal();
  } catch (const ClassFault& fault) {
    session.Report(fault.what());
  } catch (const FileError& error) {
    session.Report("The folder " + InQuotes(request.folder) + " could not be written: " + error.what());
  }
  return ExitUsage;
}

} // namespace strutwright
