#include "OutputNames.h"

#include "ModelInput.h"
#include "Utf8Path.h"

#include <algorithm>
#include <filesystem>

namespace strutwright {

namespace {

std::string WithSuffix(const std::string& asked, const std::string& suffix) {
  std::filesystem::path path = PathOf(asked);
  const std::string name = Utf8Of(path.stem()) + suffix;
  return Utf8Of(path.replace_filename(PathOf(name + Utf8Of(path.extension()))));
}

std::string BaseName(const std::string& model) {
  return model == StandardStream ? "stdin" : Utf8Of(PathOf(model).stem());
}

/// Names that differ in nothing else are one file on some disks.
std::string InSmallLetters(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return name;
}

} // namespace

OutputNames::Name OutputNames::For(const std::string& asked, const std::string& model) {
  if (!Several) return {asked, false};
  const std::string suffix = "-" + BaseName(model);
  std::string file = WithSuffix(asked, suffix);
  int number = 1;
  while (!Taken.insert(InSmallLetters(file)).second) file = WithSuffix(asked, suffix + "-" + std::to_string(++number));
  return {file, number > 1};
}

} // namespace strutwright
