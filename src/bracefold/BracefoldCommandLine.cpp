#include "BracefoldCommandLine.h"

#include "FileSystem.h"
#include "modNumberText.h"

#include <CLI/CLI.hpp>

#include <iomanip>
#include <map>
#include <optional>
#include <ostream>

namespace strutwright {

namespace {

/// What the arguments say; an option that they do not name is not there.
struct Arguments {
  std::map<std::string, std::string> values;
  bool list = false;

  std::optional<std::string> Value(std::string_view option) const {
    const auto found = values.find(std::string(option));
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
};

std::string HelpFor(const FieldDescription& field) {
  const std::string unit = field.unit.empty() ? "" : " " + std::string(field.unit);
  return std::string(field.help) + "; " + NumberText(field.least) + " to " + NumberText(field.most) + unit;
}

void AddText(CLI::App& program, Arguments& arguments, const std::string& option, const std::string& help,
             const std::string& kind) {
  const auto keep = [&arguments, option](const std::string& text) { arguments.values[option] = text; };
  program.add_option_function<std::string>("--" + option, keep, help)->type_name(kind);
}

void AddOptions(CLI::App& program, Arguments& arguments) {
  AddText(program, arguments, "family", "Kind of truss: " + FamilyNames(), "NAME");
  for (const FieldDescription& each : TrussFields) {
    AddText(program, arguments, std::string(each.option), HelpFor(each), "NUMBER");
  }
  AddText(program, arguments, "support",
          "Of the left or lower and of the right or upper end: pin-roller, roller-pin "
          "or pin-pin",
          "KIND");
  AddText(program, arguments, "out", "Model file to write (.stw), without a window", "FILE");
  program.add_flag("--list", arguments.list, "List the families with what they begin with");
}

std::string FailureMessage(const CLI::App* /*program*/, const CLI::Error& error) {
  return std::string("bracefold: ") + error.what() + "\nRun with --help for more information.\n";
}

/// Fills the arguments; gives the exit status where there is nothing more to do, as after --help.
std::optional<int> Parse(const std::vector<std::string>& texts, Arguments& arguments, std::ostream& out,
                         std::ostream& err) {
  CLI::App program("Makes plane trusses for Strutwright.  Without --out it shows a window.\n"
                   "Units: m, kN, kN/mm2, mm2.  What is not given is the family's own; --list shows it.",
                   "bracefold");
  program.set_version_flag("--version", std::string("bracefold ") + STRUTWRIGHT_VERSION);
  program.footer("Exit status: 0 all well, 1 the window can't be shown, 2 wrong usage or an unwritable file.");
  program.failure_message(FailureMessage);
  program.allow_windows_style_options(false); // what begins with "/" is a path on every system
  AddOptions(program, arguments);
  try {
    // The parser takes the arguments last one first.
    program.parse(std::vector<std::string>(texts.rbegin(), texts.rend()));
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    return program.exit(error, out, err) == 0 ? BracefoldOk : BracefoldUsage;
  }
}

int Refuse(std::ostream& err, const std::string& sentence) {
  err << "bracefold: " << sentence << '\n';
  return BracefoldUsage;
}

int ListFamilies(std::ostream& out) {
  const auto row = [&out](auto name, auto span, auto height, auto bays, auto least, auto title) {
    out << std::left << std::setw(18) << name << std::right << std::setw(8) << span << std::setw(8) << height
        << std::setw(6) << bays << std::setw(11) << least << "  " << title << '\n';
  };
  row("FAMILY", "SPAN", "HEIGHT", "BAYS", "LEAST BAYS", "TITLE");
  for (const TrussFamily& each : TrussFamilies()) {
    row(each.name, each.span, each.height, each.bays, each.leastBays, each.title);
  }
  return BracefoldOk;
}

TrussTexts TextsOf(const TrussFamily& family, const Arguments& arguments) {
  TrussTexts texts = StandardTexts(family);
  for (const FieldDescription& each : TrussFields) {
    texts[each.field] = arguments.Value(each.option).value_or(texts[each.field]);
  }
  texts.support = arguments.Value("support").value_or(texts.support);
  return texts;
}

int Write(const TrussFamily& family, const TrussTexts& texts, const std::string& file, std::ostream& err) {
  TakeModel(MakeTruss(family, texts));
  try {
    SaveModelFile(file);
  } catch (const FileError& error) {
    return Refuse(err, file + ": " + error.what());
  }
  return BracefoldOk;
}

int CarryOut(const Arguments& arguments, const TrussWindow& window, std::ostream& err) {
  const std::optional<std::string> file = arguments.Value("out");
  const std::optional<std::string> name = arguments.Value("family");
  if (file && file->empty()) return Refuse(err, "--out must be the name of a file");
  if (file && !name) return Refuse(err, "--family must be given with --out");
  const TrussFamily* family = name ? FamilyNamed(*name) : &TrussFamilies().front();
  if (family == nullptr) return Refuse(err, "--family must be one of " + FamilyNames());
  const TrussTexts texts = TextsOf(*family, arguments);
  const std::optional<TrussFault> fault = FaultOf(*family, texts);
  if (fault) return Refuse(err, "--" + std::string(fault->option) + " " + fault->reason);
  return file ? Write(*family, texts, *file, err) : window(*family, texts);
}

} // namespace

int RunBracefold(const std::vector<std::string>& arguments, const TrussWindow& window, std::ostream& out,
                 std::ostream& err) {
  Arguments parsed;
  std::optional<int> status = Parse(arguments, parsed, out, err);
  if (!status) status = parsed.list ? ListFamilies(out) : CarryOut(parsed, window, err);
  out.flush();
  return out ? *status : Refuse(err, "the output could not be written");
}

} // namespace strutwright
