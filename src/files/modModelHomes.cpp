#include "modModelHomes.h"

#include "FileState.h"

namespace strutwright {

void BeginModel(const std::string& readFrom) {
  OpenedModels& models = TheFiles.Opened;
  models.open = ++models.last;
  models.homes[models.open] = {readFrom, readFrom};
}

void TakeFileOver() {
  OpenedModels& models = TheFiles.Opened;
  if (models.homes[models.open].readFrom == CurrentFileName) return;
  for (auto& [number, home] : models.homes) {
    if (number == models.open) continue;
    if (home.fileName == CurrentFileName) home.fileName.clear();
    if (home.readFrom == CurrentFileName) home.readFrom.clear();
  }
}

void LeaveModel(int number, const std::string& fileName) { TheFiles.Opened.homes[number].fileName = fileName; }

std::string FileNameOfModel(int number) { return TheFiles.Opened.homes[number].fileName; }

} // namespace strutwright
