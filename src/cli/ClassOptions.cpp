#include "ClassCommands.h"
#include "ClassTexts.h"
#include "modClassFiles.h"
#include "modTrussFamilies.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdint>
#include <memory>
#include <string>
#include <system_error>

namespace strutwright {

namespace {

void AddTexts(CLI::App& command, const char* name, std::vector<std::string>& texts, const char* help,
              const char* kind) {
  command.add_option(name, texts, help)->type_name(kind)->allow_extra_args(false);
}

/// Empty where a text is a percentage that a tolerance may have.
std::string CheckedPercent(const std::string& text) {
  const auto percent = PlainNumber(text);
  return percent && *percent >= 0.001 && *percent <= 50 ? "" : "must be a number from 0.001 to 50";
}

std::uint64_t SeedOf(const std::string& text) {
  std::uint64_t seed = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), seed);
  const bool isWhole = end.ec == std::errc() && end.ptr == text.data() + text.size();
  if (!isWhole) throw CLI::ValidationError("--seed", "must be a whole number from 0 to 18446744073709551615");
  return seed;
}

/// The numbers of a family, as Bracefold takes them.
void AddFamilyOptions(CLI::App& command, ClassRequest& request, CLI::Option* family) {
  const auto add = [&](const std::string& option, const std::string& help, const char* kind) {
    command
        .add_option_function<std::string>(
            "--" + option, [&request, option](const std::string& text) { request.familyTexts[option] = text; }, help)
        ->type_name(kind)
        ->needs(family)
        ->group("Numbers of the family");
  };
  for (const FieldDescription& each : TrussFields) {
    add(std::string(each.option), std::string(each.title) + (each.unit.empty() ? "" : ", " + std::string(each.unit)),
        "NUMBER");
  }
  add("support", "pin-roller, roller-pin or pin-pin", "KIND");
}

void AddSource(CLI::App& command, ClassRequest& request) {
  CLI::Option* model = command.add_option("MODEL", request.model, "Model (.stw) or its csv; - is standard input");
  CLI::Option* family =
      command.add_option("--family", request.family, "A family of trusses instead of a model: " + FamilyNames());
  family->type_name("NAME")->excludes(model);
  AddFamilyOptions(command, request, family);
}

void AddClassOptions(CLI::App& command, ClassRequest& request) {
  AddSource(command, request);
  command
      .add_option("--students", request.students,
                  "How many, or a list with a name in the first column of each line (.csv)")
      ->required()
      ->type_name("LIST.csv|N");
  command
      .add_option_function<std::string>(
          "--seed", [&request](const std::string& text) { request.seed = SeedOf(text); },
          "The same seed gives the same problems on every machine")
      ->type_name("NUMBER")
      ->default_str(std::to_string(request.seed));
  AddTexts(command, "--vary", request.vary,
           "What differs, with its least and largest value and the step: span:18..30:1, height, load, area, e; of a "
           "family also bays and its other numbers",
           "NAME:FROM..TO:STEP");
  AddTexts(command, "--ask", request.ask,
           "What is asked: forces:7,9, reactions, displacement:4y, zero-members, determinacy, k:2", "WHAT");
  command.get_option("--ask")->required();
  command.add_option("--out", request.folder, "The folder to make; it must not exist")->required()->type_name("FOLDER");
  request.formats = ClassFormatNames;
  command.add_option("--format", request.formats, "What to make, some of " + std::string(ClassFormatNames))
      ->type_name("NAMES")
      ->capture_default_str();
  command.add_option("--tolerance", request.percent, "Percent of the right value that an answer may be off")
      ->check(CheckedPercent)
      ->type_name("PERCENT")
      ->capture_default_str();
}

void AddClassCommand(CLI::App& program, CommandToRun& command) {
  CLI::App& options = *program.add_subcommand("class", "Make a problem of one's own for every student, with the key");
  const auto request = std::make_shared<ClassRequest>();
  AddClassOptions(options, *request);
  options.callback([request, &command] {
    if (request->model.empty() && request->family.empty()) throw CLI::RequiredError("MODEL or --family");
    command = [request](std::istream& in, std::ostream& out, std::ostream& err) {
      return MakeClass(*request, in, out, err);
    };
  });
}

void AddMarkCommand(CLI::App& program, CommandToRun& command) {
  CLI::App& options = *program.add_subcommand("mark", "Mark the answers of a class by the key of its class set");
  const auto request = std::make_shared<MarkRequest>();
  options.add_option("KEY", request->key, "The key.csv of the class set")->required();
  options.add_option("ANSWERS", request->answers, "Answers with the columns student,question,answer (.csv)")
      ->required();
  options.add_option("--out", request->marks, "Where to write the marks (.csv); standard output by default")
      ->type_name("FILE");
  options.add_flag("--forgive-sign", request->forgiveSign,
                   "A wrong sign, or T for C, gets the point all the same; the slip is named");
  options.callback([request, &command] {
    command = [request](std::istream& in, std::ostream& out, std::ostream& err) {
      return MarkClass(*request, in, out, err);
    };
  });
}

} // namespace

void AddClassCommands(CLI::App& program, CommandToRun& command) {
  AddClassCommand(program, command);
  AddMarkCommand(program, command);
}

} // namespace strutwright
