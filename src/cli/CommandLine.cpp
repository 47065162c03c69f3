#include "CommandLine.h"

#include "ClassCommands.h"
#include "Commands.h"
#include "Completion.h"
#include "ModelInput.h"
#include "PathSpelling.h"
#include "Picture.h"
#include "PlainOptions.h"
#include "Utf8Path.h"
#include "modNumberText.h"
#include "modReportFiles.h"
#include "modWorkedFiles.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>

namespace strutwright {

namespace {

/// What the arguments ask for.
struct Request {
  PlainRequests plain;
  bool check = false;
  FilesRequest files;
  InfluenceRequest influence;
  std::string input; ///< of statics
  std::string shell;
  CommandToRun command;
};

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
  const auto whole = [](const std::string& name) {
    if (IsSharePath(name)) return TidyPath(NativePath(name));
    return Utf8Of(std::filesystem::absolute(PathOf(name)).lexically_normal());
  };
  return NameOneFile(whole(one), whole(other));
}

void AddPictureFile(CLI::App& command, PictureRequest& picture, const char* help) {
  command.add_option("--picture", picture.file, help)->check([](const std::string& name) {
    if (name == StandardStream) return "standard output bears the results";
    if (IsNameOfModel(name)) return "a picture would take the place of a model: choose .png, .svg or .bmp";
    return name.empty() ? "a file name is expected" : "";
  });
  AddPictureOption(command, picture, "--size", "Of the picture in pixels; 1024x768 by default", "WIDTHxHEIGHT",
                   SizeFault);
}

void AddPicture(CLI::App& command, PictureRequest& picture) {
  AddPictureFile(command, picture,
                 "Also draw each model with its results: .png, .svg, .tex for TikZ, otherwise a bitmap");
  AddPictureOption(command, picture, "--layers", "What the picture shows; everything by default", PictureLayers,
                   LayersFault);
  AddChecked(command, "--style",
             "How picture and report are drawn: clear, so that no label stands on another, or described, in metres of "
             "the truss; clear by default",
             "clear,described", [&picture](const std::string& name) { return StyleFault(picture, name); });
  AddPictureOption(command, picture, "--deflection-scale", "Of the deflected shape, in mm drawn per mm; 100 by default",
                   "NUMBER", ScaleFault);
}

void AddFiles(CLI::App& command, FilesRequest& files) {
  AddPicture(command, files.picture);
  command.add_option("--report", files.report, "Also write a report of each model: .pdf or .html")
      ->check([](const std::string& name) {
        return IsNameOfReport(name) ? "" : "\"" + name + "\" does not end in .pdf or .html";
      })
      ->type_name("FILE");
  command
      .add_option("--working", files.working,
                  "Also write each model's worked solution, every step with its numbers: .pdf, .html or .tex")
      ->check([](const std::string& name) {
        return IsNameOfWorked(name) ? "" : "\"" + name + "\" does not end in .pdf, .html or .tex";
      })
      ->type_name("FILE");
}

void CheckFileNames(const CLI::App& command, const FilesRequest& files) {
  const bool draws = !files.picture.file.empty() || !files.report.empty();
  if (command.count("--style") > 0 && !draws) throw CLI::RequiresError("--style", "--picture or --report");
  if (AreOneFile(files.report, files.picture.file)) {
    throw CLI::ValidationError("--report", "the picture has the same name");
  }
  for (const std::string& other : {files.picture.file, files.report}) {
    if (!AreOneFile(files.working, other)) continue;
    throw CLI::ValidationError("--working", "the picture or the report has the same name");
  }
}

void AddWholeAnalyse(CLI::App& program, Request& request) {
  CLI::App& command = AddAnalyse(program, request.plain);
  command.add_flag("--check", request.check,
                   "Also tell how far each answer can be trusted; exit status 3 where it can't");
  AddFiles(command, request.files);
  command.callback([&request, &command] {
    CheckFileNames(command, request.files);
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      return AnalyseWholly({AnalysisOf(request.plain, err), request.check, request.files}, in, out, err);
    };
  });
}

void AddWholeShow(CLI::App& program, Request& request) {
  AddShow(program, request.plain).callback([&request] {
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      return ShowModel(
          request.plain.show, [] { return TikzPicture({}, false); }, in, out, err);
    };
  });
}

void AddStatics(CLI::App& program, Request& request) {
  CLI::App& command = *program.add_subcommand("statics", "Solve a model by hand: reactions, joints, sections, members "
                                                         "without force, force diagram");
  command.add_option("MODEL", request.input, InputHelp)->required();
  command.add_option("--format", request.plain.format, "text: to read; json: for scripts")
      ->check(CLI::IsMember({"text", "json"}))
      ->capture_default_str();
  command.callback([&request] {
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      return PrintStatics(request.input, FormatNamed(request.plain.format), in, out, err);
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
  AddFormat(command, request.plain.format);
  AddPictureFile(command, request.influence.picture,
                 "Also draw the truss with the line below: .png, .svg, .tex for TikZ, otherwise a bitmap");
  command.callback([&request] {
    request.command = [&request](std::istream& in, std::ostream& out, std::ostream& err) {
      request.influence.format = FormatNamed(request.plain.format);
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

/// What the arguments ask for, with what it needs in the request.  Help, and what is wrong, is printed at once.
CommandToRun ReadCommand(const std::vector<std::string>& arguments, Request& request, std::ostream& out,
                         std::ostream& err) {
  CLI::App program;
  DescribeProgram(program);
  AddWholeAnalyse(program, request);
  AddWholeShow(program, request);
  AddStatics(program, request);
  AddMake(program, request.plain, request.command);
  AddInfluence(program, request);
  AddClassCommands(program, request.command);
  AddCompletion(program, request);
  try {
    // The parser takes the arguments last one first.
    program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    return request.command;
  } catch (const CLI::ParseError& error) {
    const int status = program.exit(error, out, err) == 0 ? ExitOk : ExitUsage;
    return [status](std::istream&, std::ostream&, std::ostream&) { return status; };
  }
}

} // namespace

int RunCommandLine(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err) {
  Request request;
  const CommandToRun command = ReadCommand(arguments, request, out, err);
  return CarryOut(command, in, out, err);
}

} // namespace strutwright
