#include "modFileCommands.h"

#include "FileState.h"
#include "Platform.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <utility>

namespace strutwright {

namespace {

std::string Number(std::size_t count) { return std::to_string(count); }

/// What was wrong with a file that could be opened all the same; empty when nothing was.
std::string Shortcomings(const StoredModel& model) {
  std::string text;
  if (model.presentValues < model.promisedValues) {
    text += "\nOnly " + Number(model.presentValues) + " of its " + Number(model.promisedValues) +
            " values are there; the others are read as zero.";
  }
  if (model.notFiniteValues > 0) {
    text += "\nNot finite numbers and read as zero: " + Number(model.notFiniteValues) + " of its " +
            Number(model.promisedValues) + " values.";
  }
  return text;
}

} // namespace

bool openModel(const std::string& fileName, std::string* reason) {
  try {
    StoredModel model = LoadModelFile(fileName);
    const std::string shortcomings = Shortcomings(model);
    TakeModel(std::move(model));
    CurrentFileName = fileName;
    CopyModelToGrids();
    if (!shortcomings.empty()) {
      ShowMessage(MessageIcon::Information, "The file " + fileName + " is damaged." + shortcomings);
    }
    return true;
  } catch (const FileError& error) {
    ShowMessage(MessageIcon::None, "Unkown error while opening file " + fileName);
    CurrentFileName.clear();
    if (reason != nullptr) *reason = error.what();
    return false;
  }
}

} // namespace strutwright
