#include "PlainOptions.h"

#include "WorkerProcesses.h"
#include "modNumberText.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <map>
#include <optional>

namespace strutwright {

namespace {

constexpr const char* FormatHelp = "text: tables to read; csv: every digit, for spreadsheets; json: every digit, for "
                                   "scripts";

ShowFormat ShowFormatNamed(const std::string& name) {
  static const std::map<std::string, ShowFormat> formats{{"text", ShowFormat::AsText},
                                                         {"csv", ShowFormat::AsCsv},
                                                         {"json", ShowFormat::AsJson},
                                                         {"dxf", ShowFormat::AsDxf},
                                                         {"tikz", ShowFormat::AsTikz}};
  return formats.at(name);
}

std::string ScaleOfDxfFault(ShowRequest& request, const std::string& text) {
  const std::optional<float> scale = NumericValue(text);
  if (!scale || *scale < 0 || *scale > 5000) return "\"" + text + "\" is not a number from 0 to 5000";
  request.deflectionScale = *scale;
  return "";
}

std::string UnitsFault(DrawingOptions& drawing, const std::string& unit) {
  drawing.metres = MetresOfUnit(unit);
  return drawing.metres ? "" : "\"" + unit + "\" is none of mm, cm, m, in, ft";
}

std::string ToleranceFault(DrawingOptions& drawing, const std::string& text) {
  const std::optional<float> tolerance = NumericValue(text);
  if (!tolerance || *tolerance < 1e-6F || *tolerance > 1000) {
    return "\"" + text + "\" is not a number of metres from 0.000001 to 1000";
  }
  drawing.tolerance = static_cast<double>(*tolerance);
  return "";
}

void AddDrawingOptions(CLI::App& command, MakeRequest& make) {
  AddChecked(command, "--units", "Unit of a DXF drawing; what the drawing says by default", "mm|cm|m|in|ft",
             [&make](const std::string& text) { return UnitsFault(make.drawing, text); });
  AddChecked(command, "--tolerance", "Ends of lines so near in m are one node; 0.001 by default", "NUMBER",
             [&make](const std::string& text) { return ToleranceFault(make.drawing, text); });
  command.add_flag("--split", make.drawing.split, "Part lines of a drawing where they cross or meet");
  command.add_option("--layers", make.layers, "Table with the headings layer, E and A: what members on a layer get")
      ->type_name("TABLE");
}

/// What nobody caught ends the program in order.
int RunGuarded(const CommandToRun& command, std::istream& in, std::ostream& out, std::ostream& err) {
  try {
    return command(in, out, err);
  } catch (const std::exception& failure) {
    err << "strutwright-cli: " << failure.what() << '\n';
    return ExitUsage;
  }
}

} // namespace

void DescribeProgram(CLI::App& program) {
  program.name("strutwright-cli");
  program.description("Analyses plane pin-jointed trusses by the direct stiffness method.\n"
                      "Units: m, kN, kN/mm2, mm2; displacements in mm, stresses in N/mm2; tension is positive.");
  program.set_version_flag("--version", std::string("strutwright-cli ") + STRUTWRIGHT_VERSION);
  program.footer("Exit status: 0 all well, 1 a model is unstable or failed, 2 usage or an unreadable or unwritable "
                 "file, 3 a checked answer is misleading.");
  program.require_subcommand(1);
  program.allow_windows_style_options(false); // what begins with "/" is a path on every system
}

CLI::App& AddAnalyse(CLI::App& program, PlainRequests& requests) {
  CLI::App& command = *program.add_subcommand("analyse", "Analyse models and print displacements, reactions and "
                                                         "member forces");
  command.add_option("MODEL", requests.analysis.models, "Models (.stw), tables, JSON or DXF; - is standard input")
      ->required();
  AddFormat(command, requests.format);
  command.add_option("-j,--jobs", requests.analysis.processes, "Processes that share the models; 1 by default")
      ->check(CLI::Range(1, 256))
      ->type_name("NUMBER");
  return command;
}

AnalyseRequest AnalysisOf(const PlainRequests& requests, const std::ostream& err) {
  AnalyseRequest analysis = requests.analysis;
  analysis.format = FormatNamed(requests.format);
  analysis.showsProgress = &err == &std::cerr && IsTerminal(ErrorOutput);
  return analysis;
}

CLI::App& AddShow(CLI::App& program, PlainRequests& requests) {
  CLI::App& command = *program.add_subcommand("show", "Print the nodes and members of a model, or its drawing");
  command.add_option("MODEL", requests.show.model, InputHelp)->required();
  command
      .add_option("--format", requests.format,
                  "text: tables to read; csv: every digit, for spreadsheets; json: every digit, for scripts; dxf: a "
                  "drawing in metres, for CAD; tikz: a drawing for LaTeX")
      ->check(CLI::IsMember({"text", "csv", "json", "dxf", "tikz"}))
      ->capture_default_str();
  AddChecked(command, "--deflection-scale", "Of the deflected shape in dxf, 0 for none; 100 by default", "NUMBER",
             [&requests](const std::string& text) { return ScaleOfDxfFault(requests.show, text); });
  command.parse_complete_callback([&requests, &command] {
    if (command.count("--deflection-scale") > 0 && requests.format != "dxf") {
      throw CLI::RequiresError("--deflection-scale", "--format dxf");
    }
    requests.show.format = ShowFormatNamed(requests.format);
  });
  return command;
}

void AddMake(CLI::App& program, PlainRequests& requests, CommandToRun& command) {
  CLI::App& options =
      *program.add_subcommand("make", "Build a model from a drawing (DXF), a table (csv, tabs) or JSON");
  options
      .add_option("INPUT", requests.make.input,
                  "Drawing in DXF, tables of nodes and members, JSON, or a model; - is standard input")
      ->required();
  options.add_option("OUT", requests.make.output, "Model file to write (.stw); - is standard output")->required();
  AddDrawingOptions(options, requests.make);
  options.callback([&requests, &command] {
    command = [&requests](std::istream& in, std::ostream& out, std::ostream& err) {
      return MakeModel(requests.make, in, out, err);
    };
  });
}

void AddFormat(CLI::App& command, std::string& format) {
  command.add_option("--format", format, FormatHelp)
      ->check(CLI::IsMember({"text", "csv", "json"}))
      ->capture_default_str();
}

OutputFormat FormatNamed(const std::string& name) {
  if (name == "csv") return OutputFormat::Csv;
  return name == "json" ? OutputFormat::Json : OutputFormat::Text;
}

CLI::Option* AddChecked(CLI::App& command, const char* name, const char* help, const char* kind,
                        const std::function<std::string(const std::string&)>& fault) {
  return command
      .add_option_function<std::string>(
          name, [](const std::string&) {}, help)
      ->check(fault)
      ->type_name(kind);
}

int CarryOut(const CommandToRun& command, std::istream& in, std::ostream& out, std::ostream& err) {
  const int status = RunGuarded(command, in, out, err);
  out.flush();
  if (out) return status;
  err << "strutwright-cli: the output could not be written\n";
  return ExitUsage;
}

} // namespace strutwright
