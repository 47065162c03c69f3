#include "CommandLine.h"
#include "NativeConsole.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
  strutwright::SetUpConsole();
  const std::vector<std::string> arguments = strutwright::ProgramArguments(argc, argv);
  return strutwright::RunCommandLine(arguments, std::cin, std::cout, std::cerr);
}
