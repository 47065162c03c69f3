#include "CommandLine.h"
#include "Commands.h"
#include "FileSystem.h"
#include "ModelCsv.h"
#include "ModelInput.h"
#include "ModelSession.h"
#include "modFileCommands.h"
#include "modModelFile.h"

#include <istream>
#include <optional>
#include <ostream>
#include <string>

namespace strutwright {

namespace {

/// The bytes of the input; nothing when it can't be read, which has been reported by then.
std::optional<std::string> InputOf(const std::string& input, std::istream& in, std::ostream& err) {
  ModelSession session(input, err);
  try {
    std::string bytes = ReadInput(input, in);
    return IsText(bytes) ? bytes : ModelBytes(bytes);
  } catch (const FileError& error) {
    session.Report(error.what());
    return std::nullopt;
  }
}

} // namespace

int MakeModel(const std::string& input, const std::string& output, std::istream& in, std::ostream& out,
              std::ostream& err) {
  const std::optional<std::string> bytes = InputOf(input, in, err);
  if (!bytes) return ExitUsage;
  ModelSession session(output, err);
  try {
    TakeModel(IsText(*bytes) ? ModelFromCsv(*bytes) : ReadModel(*bytes));
  } catch (const CsvError& error) {
    err << input << ":" << error.line << ": " << error.what() << '\n';
    return ExitUsage;
  }
  if (output == StandardStream) {
    out << WriteModel();
    return ExitOk;
  }
  try {
    SaveModelFile(output);
  } catch (const FileError& error) {
    ReportSaveFailure(output, error.what());
    return ExitUsage;
  }
  return ExitOk;
}

} // namespace strutwright
