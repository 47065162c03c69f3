#include "PlainCommandLine.h"

#include "PlainOptions.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace strutwright {

namespace {

/// Reads the arguments; the command stays empty where another program is to have them.
CommandToRun ReadPlainCommand(const std::vector<std::string>& arguments, PlainRequests& requests) {
  CommandToRun command;
  CLI::App program;
  DescribeProgram(program);
  AddAnalyse(program, requests).callback([&] {
    command = [&requests](std::istream& in, std::ostream& out, std::ostream& err) {
      return AnalyseModels(AnalysisOf(requests, err), {}, in, out, err);
    };
  });
  AddShow(program, requests).callback([&] {
    if (requests.show.format == ShowFormat::AsTikz) return;
    command = [&requests](std::istream& in, std::ostream& out, std::ostream& err) {
      return ShowModel(requests.show, {}, in, out, err);
    };
  });
  AddMake(program, requests, command);
  try {
    // The parser takes the arguments last one first.
    program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForVersion& version) {
    const std::string text = version.what();
    return [text](std::istream&, std::ostream& out, std::ostream&) {
      out << text << '\n';
      return ExitOk;
    };
  } catch (const CLI::ParseError&) { // the whole program knows what is wrong, or what is right
    return {};
  }
  return command;
}

} // namespace

std::optional<int> RunPlainCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                                   std::ostream& err) {
  PlainRequests requests;
  const CommandToRun command = ReadPlainCommand(arguments, requests);
  if (!command) return std::nullopt;
  return CarryOut(command, in, out, err);
}

} // namespace strutwright
