#pragma once

#include "PlainCommands.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace strutwright {

/// What carries out a command once its options are known.
using CommandToRun = std::function<int(std::istream&, std::ostream&, std::ostream&)>;

/// What the arguments of the plain commands ask for.
struct PlainRequests {
  AnalyseRequest analysis;
  ShowRequest show;
  MakeRequest make;
  std::string format = "text"; ///< of whichever command is asked for
};

/// Fits a parser with the program's name, summary and version, and has it want one command.
void DescribeProgram(CLI::App& program);

// Each adds a command to a parser, its options filling the requests; the caller says what it does.
CLI::App& AddAnalyse(CLI::App& program, PlainRequests& requests);
CLI::App& AddShow(CLI::App& program, PlainRequests& requests);

/// Also says what it does: `command` is that once the arguments ask for it.
void AddMake(CLI::App& program, PlainRequests& requests, CommandToRun& command);

/// What was asked for with AddAnalyse, its format and its progress settled.
AnalyseRequest AnalysisOf(const PlainRequests& requests, const std::ostream& err);

/// What a command reads.
inline constexpr const char* InputHelp = "Model (.stw), tables, JSON or DXF; - is standard input";

/// Adds --format with text, csv and json.
void AddFormat(CLI::App& command, std::string& format);

OutputFormat FormatNamed(const std::string& name);

/// An option whose text is read where it is checked; `fault` says what is wrong with it.
CLI::Option* AddChecked(CLI::App& command, const char* name, const char* help, const char* kind,
                        const std::function<std::string(const std::string&)>& fault);

/// Carries out a command.  What nobody caught, and output that can't be written, is reported in a line.
int CarryOut(const CommandToRun& command, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace strutwright
