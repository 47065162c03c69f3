#include "CommandLine.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  return strutwright::RunCommandLine(arguments, std::cin, std::cout, std::cerr);
}
