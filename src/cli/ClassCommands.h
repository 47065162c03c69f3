#pragma once

#include "PlainOptions.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace strutwright {

// The commands for a class: one makes a problem for each student, one marks the answers.

/// Options as they were typed.
struct ClassRequest {
  std::string model;                              ///< empty where a family is given
  std::string family;                             ///< empty where a model is given
  std::map<std::string, std::string> familyTexts; ///< the family's numbers and "support", by option
  std::string students;                           ///< a number or the name of a list
  std::uint64_t seed = 1;
  std::vector<std::string> vary;
  std::vector<std::string> ask;
  std::string folder;
  std::string formats;
  double percent = 1; ///< that an answer may be off
};

struct MarkRequest {
  std::string key;
  std::string answers;
  std::string marks; ///< where to write them; empty: standard output
  bool forgiveSign = false;
};

/// Makes the folder of a class set; whatever can't be is said in one sentence on `err`, and then there is no folder.
int MakeClass(const ClassRequest& request, std::istream& in, std::ostream& out, std::ostream& err);

/// Marks the answers by the key, prints how the class did, and writes the marks.
int MarkClass(const MarkRequest& request, std::istream& in, std::ostream& out, std::ostream& err);

/// Adds both commands with their options; `command` is what the arguments ask for.
void AddClassCommands(CLI::App& program, CommandToRun& command);

} // namespace strutwright
