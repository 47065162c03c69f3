#include "Completion.h"

#include <CLI/CLI.hpp>

#include <sstream>
#include <vector>

namespace strutwright {

namespace {

constexpr const char* ProgramName = "strutwright-cli";

/// An option as a shell completes it.
struct OptionWords {
  std::vector<std::string> names; ///< "-j", "--jobs"
  std::string description;
  std::vector<std::string> values; ///< the only words that it takes; empty where it takes any
  bool takesValue = false;
  bool takesFile = false;
};

struct CommandWords {
  std::string name;
  std::string description;
  std::vector<OptionWords> options;
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

OptionWords WordsOf(const CLI::Option& option) {
  OptionWords words;
  for (const std::string& name : option.get_snames()) words.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) words.names.push_back("--" + name);
  words.description = option.get_description();
  words.takesValue = option.get_items_expected_max() > 0;
  if (!words.takesValue) return words;
  const std::string type = option.get_type_name();
  words.values = ValuesOf(type);
  words.takesFile = words.values.empty() && (type == "FILE" || type == "TABLE" || type == "TEXT" || type == "FOLDER");
  return words;
}

/// The options of a command and of its groups, which have no name.
void AddOptions(const CLI::App& command, std::vector<OptionWords>& options) {
  for (const CLI::Option* option : command.get_options({})) {
    const bool isNamed = !option->get_snames().empty() || !option->get_lnames().empty();
    if (isNamed) options.push_back(WordsOf(*option));
  }
  for (const CLI::App* group : command.get_subcommands({})) {
    if (group->get_name().empty()) AddOptions(*group, options);
  }
}

CommandWords WordsOf(const CLI::App& command) {
  CommandWords words{command.get_name(), command.get_description(), {}};
  AddOptions(command, words.options);
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

std::string BashScript(const std::vector<CommandWords>& commands) {
  std::string names;
  std::string values;
  std::string options;
  for (const CommandWords& command : commands) {
    names += command.name + " ";
    options += "    " + command.name + ") words=\"" + Joined(NamesOf(command.options)) + "\" ;;\n";
    for (const OptionWords& option : command.options) {
      if (option.values.empty()) continue;
      for (const std::string& name : option.names) {
        values += "    \"" + command.name + " " + name + "\") words=\"" + Joined(option.values) + "\" ;;\n";
      }
    }
  }
  return std::string("# bash completion for ") + ProgramName +
         "\n_strutwright_cli() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command=${COMP_WORDS[1]} "
         "words=\n"
         "  COMPREPLY=()\n"
         "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
         "    COMPREPLY=($(compgen -W \"" +
         names +
         "--help --version\" -- \"$current\"))\n    return\n  fi\n"
         "  case \"$command $previous\" in\n" +
         values +
         "  esac\n"
         "  if [ -n \"$words\" ]; then\n    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n    return\n  fi\n"
         "  case \"$command\" in\n" +
         options +
         "  esac\n"
         "  case \"$current\" in\n"
         "    -*) COMPREPLY=($(compgen -W \"$words\" -- \"$current\")) ;;\n"
         "    *) mapfile -t COMPREPLY < <(compgen -f -- \"$current\") ;;\n"
         "  esac\n}\ncomplete -o filenames -F _strutwright_cli " +
         ProgramName + "\n";
}

/// One option as _arguments of zsh takes it: names, description and what it takes.
std::string ZshOption(const OptionWords& option) {
  std::string end = InQuotes("[" + Escaped(option.description, "[]\\") + "]");
  if (!option.values.empty()) {
    end += InQuotes(":value:(" + Joined(option.values) + ")");
  } else if (option.takesValue) {
    end += option.takesFile ? "':file:_files'" : "':value: '";
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
    script += " \\\n        '*:file:_files'\n      ;;\n";
  }
  return script + "  esac\n}\n_strutwright_cli \"$@\"\n";
}

std::string FishOption(const CommandWords& command, const OptionWords& option) {
  std::string line =
      std::string("complete -c ") + ProgramName + " -n '__fish_seen_subcommand_from " + command.name + "'";
  for (const std::string& name : option.names) {
    line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  if (option.takesValue) line += option.takesFile ? " -r" : " -x";
  if (!option.values.empty()) line += " -a '" + Joined(option.values) + "'";
  return line + " -d '" + Escaped(option.description, "'\\") + "'\n";
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
