#include "CommandLine.h"

#include "ClassCommands.h"
#include "Commands.h"
#include "Completion.h"
#include "ModelInput.h"
#include "Picture.h"
#include "WorkerProcesses.h"
#include "modNumberText.h"
#include "modReportFiles.h"
#include "modWorkedFiles.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <optional>

namespace strutwright {

namespace {

constexpr const char* FormatHelp = "text: tables to read; csv: every digit, for spreadsheets; json: every digit, for "
                                   "scripts";

constexpr const char* InputHelp = "Model (.stw), tables, JSON or DXF; - is standard input";

/// What the arguments ask for.
struct Request {
  AnalyseRequest analysis;
  InfluenceRequest influence;
  ShowRequest show;
  MakeRequest make;
  std::string input;
  std::string shell;
  std::string format = "text";
  CommandToRun command;
};

OutputFormat FormatNamed(const std::string& name) {
  if (name == "csv") return OutputFormat::Csv;
  return name == "json" ? OutputFormat::Json : OutputFormat::Text;
}

void AddFormat(CLI::App& command, Request& request) {
  command.add_option("--format", request.format, FormatHelp)
      ->check(CLI::IsMember({"text", "csv", "json"}))
      ->capture_default_str();
}

std::string SizeFault(PictureRequest& picture, const std::string& text) {
  return ChooseSize(picture, text) ? ""
                                   : "\"" + text + "\" is not a width and a height of 16 to 8192, such as 1024x768";
}

std::string LayersFault(PictureRequest& picture, const std::string& names) {
  const std::optional<std::string> unknown = ChooseLayers(picture, names);
  return unknown ? "\"" + *unknown + "\" is none of " + PictureLayers : "";
}

std::string StyleFault(PictureRequest& picture, const std::string& name) {
  if (name != "clear" && name != "described") return "\"" + name + "\" is neither clear nor described";
  picture.style = name == "clear" ? DrawingStyle::Clear : DrawingStyle::Described;
  return "";
}

std::string ScaleFault(PictureRequest& picture, const std::string& text) {
  const std::optional<float> scale = NumericValue(text);
  if (!scale || *scale < 1 || *scale > 5000) return "\"" + text + "\" is not a number from 1 to 5000";
  picture.deflectionScale = *scale;
  return "";
}

/// An option whose text is read where it is checked; `fault` says what is wrong with it.
CLI::Option* AddChecked(CLI::App& command, const char* name, const char* help, const char* kind,
                        const std::function<std::string(const std::string&)>& fault) {
  return command
      .add_option_function<std::string>(
          name, [](const std::string&) {}, help)
      ->check(fault)
      ->type_name(kind);
}

using PictureFault = std::string (*)(PictureRequest&, const std::string&);

void AddPictureOption(CLI::App& command, PictureRequest& picture, const char* name, const char* help, const char* kind,
                      PictureFault fault) {
  AddChecked(command, name, help, kind, [&picture, fault](const std::string& text) {
    return fault(picture, text);
  })->needs(command.get_option("--picture"));
}

bool IsNameOfModel(const std::string& name) { return name.ends_with(".stw") || name.ends_with(".csv"); }

/// Whether two names of files to write, empty where there is none, mean one file.
bool AreOneFile(const std::string& one, const std::string& other) {
  if (one.empty() || other.empty()) return false;
  const auto whole = [](const std::string& name) { return std::filesystem::absolute(name).lexically_normal(); };
  return whole(one) == whole(other);
}

void AddPictureFile(CLI::App& command, PictureRequest& picture, const char* help) {
  command.add_option("--picture", picture.file, help)->check([](const std::string& name) {
    if (name == StandardStream) return "standard output bears the results";
    if (IsNameOfModel(name)) return "a picture would take the place of a model: choose .png, .svg or .bmp";
    return name.empty() ? "a file name is expected" : "";
  });
  AddPictureOption(command, picture, "--size", "Of the picture in pixels; 1024x768 unless told", "WIDTHxHEIGHT",
                   SizeFault);
}

void AddPicture(CLI::App& command, PictureRequest& picture) {
  AddPictureFile(command, picture,
                 "Also draw each model with its results: .png, .svg, .tex for TikZ, otherwise a bitmap");
  AddPictureOption(command, picture, "--layers", "What the picture shows; everything unless told", PictureLayers,
                   LayersFault);
  AddChecked(command, "--style",
             "How picture and report are drawn: clear, so that no label stands on another, or described, in metres of "
             "the truss; clear unless told",
             "clear,described", [&picture](const std::string& name) { return StyleFault(picture, name); });
  AddPictureOption(command, picture, "--deflection-scale",
                   "Of the deflected shape, in mm drawn per mm; 100 unless told", "NUMBER", ScaleFault);
}

void AddAnalyse(CLI::App& program, Request& request) {
  CLI::App& command = *program.add_subcommand("analyse", "Analyse models and print displacements, reactions and "
                                                         "member forces");
  command.add_option("MODEL", request.analysis.models, "Models (.stw), tables, JSON or DXF; - is standard input")
      ->required();
  AddFormat(command, request);
  command.add_flag("--check", request.analysis.check,
                   "Also tell how far each answer can be trusted; exit status 3 where it can't");
  AddPicture(command, request.analysis.picture);
  command.add_option("--report", request.analysis.report, "Also write a report of each model: .pdf or .html")
      ->check([](const std::string& name) {
        return IsNameOfReport(name) ? "" : "\"" + name + "\" does not end in .pdf or .html";
      })
      ->type_name("FILE");
  command
      .add_option("--working", request.analysis.working,
                  "Also write each model's worked solution, every step with its numbers: .pdf, .html or .tex")
      ->check([](const std::string& name) {
        return IsNameOfWorked(name) ? "" : "\"" + name + "\" does not end in .pdf, .html or .tex";
      })
      ->type_name("FILE");
  command.add_option("-j,--jobs", request.analysis.processes, "Processes that share the models; 1 unless told")
      ->check(CLI::Range(1, 256))
      ->type_name("NUMBER");
  command.callback([&request, &command] {
    const bool draws = !request.analysis.picture.file.empty() || !request.analysis.report.empty();
    if (command.count("--style") > 0 && !draws) throw CLI::RequiresError("--style", "--picture or --report");
    if (AreOneFile(request.analysis.report, request.analysis.picture.file)) {
      throw CLI::ValidationError("--report", "the picture has the same name");
    }
    for (const std::string& other : {request.analysis.picture.file, request.analysis.report}) {
      if (!AreOneFile(request.analysis.working, other)) continue;
      throw CLI::ValidationError("--working", "the picture or the report has the same name");
    }
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      request.analysis.format = FormatNamed(request.format);
      request.analysis.showsProgress = &err == &std::cerr && IsTerminal(ErrorOutput);
      return AnalyseModels(request.analysis, in, out, err);
    };
  });
}

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

void AddShow(CLI::App& program, Request& request) {
  CLI::App& command = *program.add_subcommand("show", "Print the nodes and members of a model, or its drawing");
  command.add_option("MODEL", request.show.model, InputHelp)->required();
  command
      .add_option("--format", request.format,
                  "text: tables to read; csv: every digit, for spreadsheets; json: every digit, for scripts; dxf: a "
                  "drawing in metres, for CAD; tikz: a drawing for LaTeX")
      ->check(CLI::IsMember({"text", "csv", "json", "dxf", "tikz"}))
      ->capture_default_str();
  AddChecked(command, "--deflection-scale", "Of the deflected shape in dxf, 0 for none; 100 unless told", "NUMBER",
             [&request](const std::string& text) { return ScaleOfDxfFault(request.show, text); });
  command.callback([&request, &command] {
    if (command.count("--deflection-scale") > 0 && request.format != "dxf") {
      throw CLI::RequiresError("--deflection-scale", "--format dxf");
    }
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      request.show.format = ShowFormatNamed(request.format);
      return ShowModel(request.show, in, out, err);
    };
  });
}

void AddStatics(CLI::App& program, Request& request) {
  CLI::App& command = *program.add_subcommand("statics", "Solve a model by hand: reactions, joints, sections, members "
                                                         "without force, force diagram");
  command.add_option("MODEL", request.input, InputHelp)->required();
  command.add_option("--format", request.format, "text: to read; json: for scripts")
      ->check(CLI::IsMember({"text", "json"}))
      ->capture_default_str();
  command.callback([&request] {
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      return PrintStatics(request.input, FormatNamed(request.format), in, out, err);
    };
  });
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
  AddChecked(command, "--units", "Unit of a DXF drawing; what the drawing says unless told", "mm|cm|m|in|ft",
             [&make](const std::string& text) { return UnitsFault(make.drawing, text); });
  AddChecked(command, "--tolerance", "Ends of lines so near in m are one node; 0.001 unless told", "NUMBER",
             [&make](const std::string& text) { return ToleranceFault(make.drawing, text); });
  command.add_flag("--split", make.drawing.split, "Part lines of a drawing where they cross or meet");
  command.add_option("--layers", make.layers, "Table with the headings layer, E and A: what members on a layer get")
      ->type_name("TABLE");
}

void AddMake(CLI::App& program, Request& request) {
  CLI::App& command =
      *program.add_subcommand("make", "Build a model from a drawing (DXF), a table (csv, tabs) or JSON");
  command
      .add_option("INPUT", request.make.input,
                  "Drawing in DXF, tables of nodes and members, JSON, or a model; - is standard input")
      ->required();
  command.add_option("OUT", request.make.output, "Model file to write (.stw); - is standard output")->required();
  AddDrawingOptions(command, request.make);
  command.callback([&request] {
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      return MakeModel(request.make, in, out, err);
    };
  });
}

std::string QuantityTextFault(Quantity& quantity, QuantityKind kind, const std::string& text) {
  if (ChooseQuantity(quantity, kind, text)) return "";
  return "\"" + text + "\" is not " +
         (kind == QuantityKind::MemberForce ? "the number of a member, such as 7"
                                            : "a node and a direction, such as 3:x or 3:y");
}

void AddQuantities(CLI::App& command, Quantity& quantity) {
  CLI::App& group = *command.add_option_group("Quantity", "What the line is of; one of these");
  const auto add = [&](const char* name, const char* help, const char* kind, QuantityKind what) {
    AddChecked(group, name, help, kind,
               [&quantity, what](const std::string& text) { return QuantityTextFault(quantity, what, text); });
  };
  add("--member", "The force of this member", "NUMBER", QuantityKind::MemberForce);
  add("--reaction", "The reaction of a node", "NODE:x|y", QuantityKind::Reaction);
  add("--displacement", "The displacement of a node", "NODE:x|y", QuantityKind::Displacement);
  group.require_option(1);
}

void AddInfluence(CLI::App& program, Request& request) {
  CLI::App& command = *program.add_subcommand("influence", "Print the influence line of a force, a reaction or a "
                                                           "displacement for a load of 1 kN that moves over a path");
  command.add_option("MODEL", request.influence.model, "Model file (.stw)")->required();
  command.add_option("--path", request.influence.path, "The nodes that the load passes, such as 1-10 or 1,3,5")
      ->required()
      ->type_name("NODES");
  AddQuantities(command, request.influence.quantity);
  command
      .add_option("--train", request.influence.train,
                  "Also the extremes under a train: force@distance of each axle, such as 50@0,100@3.5, or one of axle, "
                  "tandem, lorry, engine")
      ->type_name("AXLES");
  AddFormat(command, request);
  AddPictureFile(command, request.influence.picture,
                 "Also draw the truss with the line below: .png, .svg, .tex for TikZ, otherwise a bitmap");
  command.callback([&request] {
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      request.influence.format = FormatNamed(request.format);
      return ShowInfluence(request.influence, in, out, err);
    };
  });
}

void AddCompletion(CLI::App& program, Request& request) {
  CLI::App& command = *program.add_subcommand("completion", "Print a script with which a shell completes this program");
  command.add_option("SHELL", request.shell, "The shell")->required()->check(CLI::IsMember({"bash", "zsh", "fish"}));
  command.callback([&request, &program] {
    const std::string script = CompletionScript(program, request.shell);
    request.command = [script](std::istream&, std::ostream& out, std::ostream&) {
      out << script;
      return ExitOk;
    };
  });
}

/// Fills the request from the arguments; gives the exit status where they ask for nothing more, as --help does.
std::optional<int> Parse(const std::vector<std::string>& arguments, Request& request, std::ostream& out,
                         std::ostream& err) {
  CLI::App program("Analyses plane pin-jointed trusses by the direct stiffness method.\n"
                   "Units: m, kN, kN/mm2, mm2; displacements in mm, stresses in N/mm2; tension is positive.",
                   "strutwright-cli");
  program.set_version_flag("--version", std::string("strutwright-cli ") + STRUTWRIGHT_VERSION);
  program.footer("Exit status: 0 all well, 1 a model is unstable or failed, 2 usage or an unreadable or unwritable "
                 "file, 3 a checked answer is misleading.");
  program.require_subcommand(1);
  AddAnalyse(program, request);
  AddShow(program, request);
  AddStatics(program, request);
  AddMake(program, request);
  AddInfluence(program, request);
  AddClassCommands(program, request.command);
  AddCompletion(program, request);
  try {
    // The parser takes the arguments last one first.
    program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    return program.exit(error, out, err) == 0 ? ExitOk : ExitUsage;
  }
}

/// What nobody caught is reported in a line and ends the program in order.
int CarryOut(const Request& request, std::istream& in, std::ostream& out, std::ostream& err) {
  try {
    return request.command(in, out, err);
  } catch (const std::exception& failure) {
    err << "strutwright-cli: " << failure.what() << '\n';
    return ExitUsage;
  }
}

} // namespace

int RunCommandLine(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err) {
  Request request;
  const std::optional<int> parsed = Parse(arguments, request, out, err);
  const int status = parsed ? *parsed : CarryOut(request, in, out, err);
  out.flush();
  if (out) return status;
  err << "strutwright-cli: the output could not be written\n";
  return ExitUsage;
}

} // namespace strutwright
