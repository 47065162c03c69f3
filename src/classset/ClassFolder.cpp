#include "ClassFolder.h"

#include "ClassFault.h"
#include "ClassTexts.h"
#include "Platform.h"
#include "Utf8Path.h"

#include <cstddef>

namespace strutwright {

namespace {

std::string WithoutEndingSlashes(std::string path) {
  while (path.size() > 1 && IsPathSeparator(path.back())) path.pop_back();
  return path;
}

} // namespace

ClassFolder::ClassFolder(const std::string& path) : Target(WithoutEndingSlashes(path)) {
  if (Target.empty()) throw ClassFault("The folder has no name: choose one that does not exist yet");
  if (Files().Kind(Target) != FileKind::Missing) {
    throw ClassFault("The folder " + InQuotes(Target) + " exists already: choose a new one, so that nothing is lost");
  }
  const std::string name = Files().CreateBeside(Target);
  Files().Remove(name);
  Files().CreateFolder(name);
  Unfinished = name;
}

ClassFolder::~ClassFolder() {
  if (Unfinished.empty()) return;
  try {
    Files().RemoveFolder(Unfinished);
  } catch (const FileError&) { // what stopped the work has been said, or will be
  }
}

void ClassFolder::Put(const std::string& name, const std::string& bytes) {
  const std::string path = Unfinished + "/" + name;
  const std::size_t slash = name.find('/');
  if (slash != std::string::npos) Files().CreateFolder(Unfinished + "/" + name.substr(0, slash));
  Files().Create(path);
  Files().Write(path, bytes);
}

void ClassFolder::Finish() {
  Files().Replace(Unfinished, Target);
  Unfinished.clear();
}

} // namespace strutwright
