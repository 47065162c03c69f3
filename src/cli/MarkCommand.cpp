#include "ClassCommands.h"
#include "ClassFault.h"
#include "CommandLine.h"
#include "ModelInput.h"
#include "ModelSession.h"
#include "Output.h"
#include "modMarking.h"
#include "modSafeSave.h"

#include <ostream>

namespace strutwright {

namespace {

std::string ReadTableFile(const std::string& name, std::istream& in) {
  try {
    return ReadInput(name, in);
  } catch (const FileError& error) {
    throw ClassFault("\"" + name + "\" can't be read: " + error.what());
  }
}

void PrintSummary(const std::vector<Mark>& marks, std::ostream& out) {
  out << SummaryOfClass(marks) << "\n\n";
  PrintTable(SummaryOfQuestions(marks), out);
}

} // namespace

int MarkClass(const MarkRequest& request, std::istream& in, std::ostream& out, std::ostream& err) {
  ModelSession session("mark", err);
  try {
    if (IsSameFile(request.marks, request.key) || IsSameFile(request.marks, request.answers)) {
      throw ClassFault("The marks would take the place of the key or the answers: choose another name for --out");
    }
    const std::vector<KeyEntry> key = ReadKey(ReadTableFile(request.key, in));
    const std::vector<HandedIn> answers = ReadAnswers(ReadTableFile(request.answers, in));
    const std::vector<Mark> marks = MarkAnswers(key, answers, {request.forgiveSign});
    if (request.marks.empty()) {
      out << MarksCsv(marks);
    } else {
      SaveWholeFile(request.marks, MarksCsv(marks));
    }
    for (const std::string& line : UnreadableAnswers(marks)) err << "mark: " << ValidText(line) << '\n';
    PrintSummary(marks, request.marks.empty() ? err : out); // the marks stand alone where another program reads them
    return ExitOk;
  } catch (const ClassFault& fault) {
    session.Report(fault.what());
  } catch (const FileError& error) {
    session.Report("Error while saving file " + request.marks + "\n" + error.what());
  }
  return ExitUsage;
}

} // namespace strutwright
