#include "CommandLine.h"
#include "Commands.h"
#include "FileSystem.h"
#include "ModelCsv.h"
#include "ModelSession.h"
#include "Platform.h"
#include "modFileCommands.h"
#include "modModelFile.h"

#include <cstddef>
#include <optional>
#include <ostream>

namespace strutwright {

namespace {

/// More than any model needs, and little enough to be read at once.
constexpr std::size_t MostInputBytes = std::size_t{64} << 20;

/// The text of the input file; nothing when it can't be read, which has been told by then.
std::optional<std::string> ReadInput(const std::string& input, std::ostream& err) {
  ModelSession session(input, err);
  try {
    std::string text = Files().Read(input, 0, MostInputBytes + 1);
    if (text.size() > MostInputBytes) throw FileError("The file is larger than any model");
    return text;
  } catch (const FileError& error) {
    session.Tell(error.what());
    return std::nullopt;
  }
}

} // namespace

int MakeModel(const std::string& input, const std::string& output, std::ostream& err) {
  const std::optional<std::string> text = ReadInput(input, err);
  if (!text) return ExitUsage;
  ModelSession session(output, err);
  try {
    TakeModel(ModelFromCsv(*text));
  } catch (const CsvError& error) {
    err << input << ":" << error.line << ": " << error.what() << '\n';
    return ExitUsage;
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
