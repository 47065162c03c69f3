#include "ExitStatus.h"
#include "NativeConsole.h"
#include "NextProgram.h"
#include "PlainCommandLine.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

/// Beside this program where it was built; below the same folder where it is installed.
const std::vector<std::string> WholePrograms{"strutwright-cli-whole", "../libexec/strutwright/strutwright-cli-whole"};

} // namespace

int main(int argc, char** argv) {
  strutwright::SetUpConsole();
  const std::vector<std::string> arguments = strutwright::ProgramArguments(argc, argv);
  if (const auto status = strutwright::RunPlainCommand(arguments, std::cin, std::cout, std::cerr)) return *status;
  try {
    strutwright::GoOnAs(WholePrograms, argv);
  } catch (const std::exception& failure) {
    std::cerr << "strutwright-cli: " << failure.what() << "; install the program again\n";
  }
  return strutwright::ExitUsage;
}
