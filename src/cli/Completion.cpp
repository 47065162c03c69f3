#include "Completion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <sstream>
#include <vector>

namespace strutwright {

namespace {

constexpr const char* ProgramName = "strutwright-cli";

/// An option as a shell completes it.
struct OptionWords {
  std::vector<std::string> names; ///< "-j", "--jobs"
  std::string description;
  std::vector<std::string> values;  ///< the only words that it takes; empty where it takes any
  std::vector<std::string> endings; ///< of the files that it takes; empty where it takes any or none
  bool takesValue = false;
  bool takesFile = false;
};

struct CommandWords {
  std::string name;
  std::string description;
  std::vector<OptionWords> options;
  std::vector<std::string> values;  ///< the only words that it takes beside options; empty where it takes files
  std::vector<std::string> endings; ///< of these files
};

std::vector<std::string> Parts(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

/// The words of a type such as "TEXT:{text,csv}" or "clear|described"; none where it takes any word.
std::vector<std::string> ValuesOf(const std::string& type) {
  const std::size_t open = type.find('{');
  const std::size_t close = type.find('}');
  if (open != std::string::npos && close != std::string::npos)
    return Parts(type.substr(open + 1, close - open - 1), ',');
  const bool isChoice = type.find_first_of("|,") != std::string::npos && type.find_first_of(":.") == std::string::npos;
  return isChoice ? Parts(type, type.find('|') != std::string::npos ? '|' : ',') : std::vector<std::string>();
}

/// How the files end that an argument of this name takes; nothing for one that takes any or none.
std::vector<std::string> EndingsOf(const std::string& name) {
  static const std::vector<std::string> models{"stw", "dxf", "csv", "tsv", "txt", "json"};
  static const std::map<std::string, std::vector<std::string>> endings{{"MODEL", models},
                                                                       {"INPUT", models},
                                                                       {"OUT", {"stw"}},
                                                                       {"KEY", {"csv"}},
                                                                       {"ANSWERS", {"csv"}},
                                                                       {"--students", {"csv"}},
                                                                       {"--layers", {"csv", "tsv", "txt"}},
                                                                       {"--picture", {"png", "svg", "bmp", "tex"}},
                                                                       {"--report", {"pdf", "html"}},
                                                                       {"--working", {"pdf", "html", "tex"}}};
  const auto found = endings.find(name);
  return found == endings.end() ? std::vector<std::string>() : found->second;
}

OptionWords WordsOf(const CLI::Option& option) {
  OptionWords words;
  for (const std::string& name : option.get_snames()) words.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) words.names.push_back("--" + name);
  words.description = option.get_description();
  words.takesValue = option.get_items_expected_max() > 0;
  if (!words.takesValue) return words;
  const std::string type = option.get_type_name();
  words.values = ValuesOf(type);
  if (words.values.empty()) words.endings = EndingsOf(words.names.back());
  words.takesFile = words.values.empty() &&
                    (!words.endings.empty() || type == "FILE" || type == "TABLE" || type == "TEXT" || type == "FOLDER");
  return words;
}

/// What may stand beside the options.
void AddPlainWord(const CLI::Option& word, CommandWords& words) {
  const std::vector<std::string> values = ValuesOf(word.get_type_name());
  words.values.insert(words.values.end(), values.begin(), values.end());
  for (const std::string& ending : EndingsOf(word.get_name(true))) {
    if (std::find(words.endings.begin(), words.endings.end(), ending) == words.endings.end()) {
      words.endings.push_back(ending);
    }
  }
}

/// The options of a command and of its groups, which have no name, and what else it takes.
void AddOptions(const CLI::App& command, CommandWords& words) {
  for (const CLI::Option* option : command.get_options({})) {
    const bool isNamed = !option->get_snames().empty() || !option->get_lnames().empty();
    isNamed ? words.options.push_back(WordsOf(*option)) : AddPlainWord(*option, words);
  }
  for (const CLI::App* group : command.get_subcommands({})) {
    if (group->get_name().empty()) AddOptions(*group, words);
  }
}

CommandWords WordsOf(const CLI::App& command) {
  CommandWords words{command.get_name(), command.get_description(), {}, {}, {}};
  AddOptions(command, words);
  return words;
}

std::vector<CommandWords> CommandsOf(const CLI::App& program) {
  std::vector<CommandWords> commands;
  for (const CLI::App* command : program.get_subcommands({})) {
    if (!command->get_name().empty()) commands.push_back(WordsOf(*command));
  }
  return commands;
}

std::string Joined(const std::vector<std::string>& words, const std::string& between = " ") {
  std::string joined;
  for (const std::string& word : words) joined += (joined.empty() ? "" : between) + word;
  return joined;
}

std::vector<std::string> NamesOf(const std::vector<OptionWords>& options) {
  std::vector<std::string> names;
  for (const OptionWords& option : options) names.insert(names.end(), option.names.begin(), option.names.end());
  return names;
}

/// Each of some characters behind a backslash.
std::string Escaped(const std::string& text, const std::string& characters) {
  std::string escaped;
  for (const char c : text) escaped += (characters.find(c) != std::string::npos ? "\\" : "") + std::string(1, c);
  return escaped;
}

/// In single quotes, in which a shell takes everything as it is but the quote itself.
std::string InQuotes(const std::string& text) {
  std::string quoted;
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return "'" + quoted + "'";
}

/// Patterns of the shell for files with these endings, in letters of either case: "*.[sS][tT][wW]".
std::vector<std::string> PatternsOf(const std::vector<std::string>& endings) {
  std::vector<std::string> patterns;
  for (const std::string& ending : endings) {
    std::string pattern = "*.";
    for (const char c : ending) pattern += "[" + std::string(1, c) + static_cast<char>(c - 'a' + 'A') + "]";
    patterns.push_back(pattern);
  }
  return patterns;
}

/// What bash does for a word that is one of these values or a file with one of these endings.
std::string BashOffer(const std::vector<std::string>& values, const std::vector<std::string>& endings) {
  if (!values.empty()) return "_strutwright_cli_words \"" + Joined(values) + "\"";
  if (endings.empty()) return "_strutwright_cli_files '*'";
  std::string offer = "_strutwright_cli_files";
  for (const std::string& pattern : PatternsOf(endings)) offer += " " + InQuotes(pattern);
  return offer;
}

/// The branches of bash for what stands behind an option.
std::string BashValues(const CommandWords& command) {
  std::string branches;
  for (const OptionWords& option : command.options) {
    if (!option.takesValue) continue;
    const bool isFree = option.values.empty() && !option.takesFile;
    for (const std::string& name : option.names) {
      branches += "    \"" + command.name + " " + name + "\") " +
                  (isFree ? "" : BashOffer(option.values, option.endings) + "; ") + "return ;;\n";
    }
  }
  return branches;
}

/// The helpers that the script has; `current` is the word to complete.
constexpr const char* BashHelpers = R"sh(_strutwright_cli_words() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$current")
}
_strutwright_cli_files() {
  local pattern
  mapfile -t COMPREPLY < <(
    compgen -d -- "$current"
    for pattern in "$@"; do compgen -f -X "!$pattern" -- "$current"; done)
}
)sh";

std::string BashScript(const std::vector<CommandWords>& commands) {
  std::string names;
  std::string values;
  std::string options;
  std::string others;
  for (const CommandWords& command : commands) {
    names += command.name + " ";
    values += BashValues(command);
    options += "      " + command.name + ") _strutwright_cli_words \"" + Joined(NamesOf(command.options)) + "\" ;;\n";
    others += "      " + command.name + ") " + BashOffer(command.values, command.endings) + " ;;\n";
  }
  return std::string("# bash completion for ") + ProgramName + "\n" + BashHelpers +
         "_strutwright_cli() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command=${COMP_WORDS[1]}\n"
         "  COMPREPLY=()\n"
         "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
         "    _strutwright_cli_words \"" +
         names + "--help --version\"\n    return\n  fi\n  case \"$command $previous\" in\n" + values +
         "  esac\n"
         "  case \"$current\" in\n    -*) case \"$command\" in\n" +
         options + "    esac ;;\n    *) case \"$command\" in\n" + others +
         "    esac ;;\n  esac\n}\ncomplete -o filenames -F _strutwright_cli " + ProgramName + "\n";
}

/// What _files of zsh takes for files with these endings.
std::string ZshFiles(const std::vector<std::string>& endings) {
  return endings.empty() ? "_files" : "_files -g \"(" + Joined(PatternsOf(endings), "|") + ")\"";
}

/// One option as _arguments of zsh takes it: names, description and what it takes.
std::string ZshOption(const OptionWords& option) {
  std::string end = InQuotes("[" + Escaped(option.description, "[]\\") + "]");
  if (!option.values.empty()) {
    end += InQuotes(":value:(" + Joined(option.values) + ")");
  } else if (option.takesValue) {
    end += option.takesFile ? InQuotes(":file:" + ZshFiles(option.endings)) : "':value: '";
  }
  if (option.names.size() == 1) return option.names[0] + end;
  return "'(" + Joined(option.names) + ")'{" + Joined(option.names, ",") + "}" + end;
}

std::string ZshScript(const std::vector<CommandWords>& commands) {
  std::string script =
      std::string("#compdef ") + ProgramName + "\n_strutwright_cli() {\n  local -a commands\n  commands=(\n";
  for (const CommandWords& command : commands) {
    script += "    " + InQuotes(command.name + ":" + Escaped(command.description, ":\\")) + "\n";
  }
  script += "  )\n  if (( CURRENT == 2 )); then\n    _describe command commands\n    _arguments --help --version\n"
            "    return\n  fi\n  case $words[2] in\n";
  for (const CommandWords& command : commands) {
    script += "    " + command.name + ")\n      shift words\n      (( CURRENT-- ))\n      _arguments";
    for (const OptionWords& option : command.options) script += " \\\n        " + ZshOption(option);
    const std::string other =
        command.values.empty() ? "*:file:" + ZshFiles(command.endings) : "*:value:(" + Joined(command.values) + ")";
    script += " \\\n        " + InQuotes(other) + "\n      ;;\n";
  }
  return script + "  esac\n}\n_strutwright_cli \"$@\"\n";
}

/// Has fish offer files with these endings first.
std::string FishFiles(const std::vector<std::string>& endings) {
  return "'(__fish_complete_suffix ." + Joined(endings, " .") + ")'";
}

std::string FishOption(const CommandWords& command, const OptionWords& option) {
  std::string line =
      std::string("complete -c ") + ProgramName + " -n '__fish_seen_subcommand_from " + command.name + "'";
  for (const std::string& name : option.names) {
    line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  if (option.takesValue) line += option.takesFile ? " -r" : " -x";
  if (!option.values.empty()) line += " -a '" + Joined(option.values) + "'";
  if (!option.endings.empty()) line += " -a " + FishFiles(option.endings);
  return line + " -d '" + Escaped(option.description, "'\\") + "'\n";
}

/// What fish offers beside the options of a command.
std::string FishWords(const CommandWords& command) {
  const std::string beginning =
      std::string("complete -c ") + ProgramName + " -n '__fish_seen_subcommand_from " + command.name + "'";
  if (!command.values.empty()) return beginning + " -f -a '" + Joined(command.values) + "'\n";
  return command.endings.empty() ? "" : beginning + " -k -a " + FishFiles(command.endings) + "\n";
}

std::string FishScript(const std::vector<CommandWords>& commands) {
  std::string script;
  for (const CommandWords& command : commands) {
    script += std::string("complete -c ") + ProgramName + " -f -n __fish_use_subcommand -a " + command.name + " -d '" +
              Escaped(command.description, "'\\") + "'\n";
  }
  for (const char* option : {"help", "version"}) {
    script += std::string("complete -c ") + ProgramName + " -n __fish_use_subcommand -l " + option + "\n";
  }
  for (const CommandWords& command : commands) {
    for (const OptionWords& option : command.options) script += FishOption(command, option);
    script += FishWords(command);
  }
  return script;
}

} // namespace

std::string CompletionScript(const CLI::App& program, const std::string& shell) {
  const std::vector<CommandWords> commands = CommandsOf(program);
  if (shell == "bash") return BashScript(commands);
  return shell == "zsh" ? ZshScript(commands) : FishScript(commands);
}

} // namespace strutwright
