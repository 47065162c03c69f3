#include <cstdio>
#include <string>

/// Writes each of its arguments and a bar into a file that is named after it.
int main(int count, char** arguments) {
  const std::string name = arguments[0];
  std::FILE* file = std::fopen((name + ".new").c_str(), "wb");
  if (file == nullptr) return 1;
  for (int i = 1; i < count; ++i) std::fprintf(file, "%s|", arguments[i]);
  const bool written = std::fclose(file) == 0;
  return written && std::rename((name + ".new").c_str(), (name + ".given").c_str()) == 0 ? 0 : 1;
}
