#include "modFileCommands.h"

#include "FileEvents.h"
#include "FileState.h"
#include "ModelEvents.h"
#include "Platform.h"
#include "RecentFiles.h"
#include "modKeepResults.h"
#include "modModelFile.h"
#include "modModelHomes.h"
#include "modModelStore.h"
#include "modPlaces.h"
#include "modRecentFiles.h"
#include "modSafeSave.h"
#include "modSavedModels.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <utility>

namespace strutwright {

namespace {

constexpr const char* ModelFilter = "Strutwright files|*.stw|All files|*.*";
constexpr const char* PictureFilter = "Bitmap files|*.bmp|All files|*.*";

/// The properties of the one dialog; its file name stays what it was at its last use.
void SetDialog(const char* title, FileDialogFlag flags, const char* filter) {
  FileDialog& dialog = TheFileDialog();
  dialog.title = title;
  dialog.flags = flags;
  dialog.defaultExtension = "feb";
  dialog.initialFolder = "C:\\windows\\desktop\\STW";
  dialog.filter = filter;
}

/// Shows the save dialog; false when the user cancelled.  Without a name, `again` starts the whole command anew, and
/// the command then goes on with the name that the dialog holds, whatever came of it.
bool AskNameToSave(const std::function<void()>& again) {
  if (!TheFileDialog().ShowSave()) return false;
  if (TheFileDialog().fileName.empty()) {
    ShowMessage(MessageIcon::Information, "Please Name a File");
    again();
  }
  return true;
}

bool TakeNameToSave() {
  SetDialog("Save As", OverwritePrompt, ModelFilter);
  if (!AskNameToSave([] { saveModel(false); })) return false;
  CurrentFileName = TheFileDialog().fileName;
  return true;
}

bool TakeNameToOpen() {
  SetDialog("Open", FileMustExist, ModelFilter);
  if (!TheFileDialog().ShowOpen()) return false;
  CurrentFileName = TheFileDialog().fileName;
  return true;
}

void ShowFileNameInCaption() { FileEvents().CaptionChanged(LastComponent(CurrentFileName)); }

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

/// Saves what was entered, without the results of the analysis.
void SaveEntered() {
  const std::string model = ModelInGrids();
  SaveBytes(CurrentFileName, model);
  NoteFile(CurrentFileName, model);
  TakeFileOver();
  if (TheFiles.OwnRecovery) TheFiles.OwnRecovery->restored = false;
}

/// Shows a model that has been opened as if the program had started with it.
void ShowOpenedModel() {
  CopyModelToGrids();
  NoteFile(CurrentFileName, ModelInGrids());
  ShowFileNameInCaption();
  FileEvents().FileOpened();
  ModelEvents().ModelReplaced();
}

void ClearDataGrids() {
  for (Grid* grid : {&GrJoints, &GrMembers}) {
    ClearGrid(*grid, GridCapacity);
    NumberRows(*grid);
    grid->SetCurrentCell(std::min(1, grid->RowCount() - 1), 1); // the first row comes when it is needed
  }
}

enum class Listing { Listed, Unlisted };

void OpenCurrentFile(Listing listing) {
  StoredModel model = LoadModelFile(CurrentFileName);
  const std::string shortcomings = Shortcomings(model);
  EndAnalysis(); // or its results would be drawn on the new model
  TakeModel(std::move(model));
  BeginModel(CurrentFileName);
  if (listing == Listing::Listed) addRecentFile(CurrentFileName);
  ShowOpenedModel();
  if (!shortcomings.empty()) {
    ShowMessage(MessageIcon::Information, "The file " + CurrentFileName + " is damaged." + shortcomings);
  }
}

bool Open(const std::string& fileName, Listing listing, std::string* reason) {
  try {
    if (fileName.empty() && !TakeNameToOpen()) return false;
    if (!fileName.empty()) CurrentFileName = fileName;
    OpenCurrentFile(listing);
    return true;
  } catch (const std::exception& failure) {
    ShowMessage(MessageIcon::None, "Unkown error while opening file " + CurrentFileName);
    CurrentFileName.clear();
    if (reason != nullptr) *reason = failure.what();
    return false;
  }
}

/// Reads back what was just written.
StoredModel ReadScratchCopy(const std::string& path) {
  StoredModel model = LoadModelFile(path);
  if (model.presentValues < model.promisedValues) throw FileError("The file is shorter than what was written");
  return model;
}

} // namespace

void saveModel(bool asSave) {
  if (asSave && CurrentFileName.empty()) return saveModel(!asSave);
  try {
    if (!asSave && !TakeNameToSave()) return;
    RebuildKeepingResults();
    SaveEntered();
    ShowFileNameInCaption();
  } catch (const std::exception& failure) {
    ReportSaveFailure(CurrentFileName, failure.what());
  }
}

bool openModel(const std::string& fileName, std::string* reason) { return Open(fileName, Listing::Listed, reason); }

bool OpenUnlisted(const std::string& fileName) { return Open(fileName, Listing::Unlisted, nullptr); }

void OpenRecentFile(int index) {
  const std::string path = mnuRUF.at(static_cast<std::size_t>(index - 1)).tag;
  CurrentFileName = path;
  addRecentFile(path);
  openModel(path);
}

void newModel() {
  const std::string fileName = OwnFile("newTruss.stw");
  BeginModel("");
  EndAnalysis();
  NodeCount = 0;
  MemberCount = 0;
  NodeTable.Recreate(NodeCount);
  MemberTable.Recreate(MemberCount);
  CurrentFileName = fileName;
  NoteFile(CurrentFileName, WriteModel());
  ClearDataGrids();
  ModelEvents().ModelEmptied();
  ShowFileNameInCaption();
  ModelEvents().ModelReplaced();
}

void savePicture(const std::function<void(const std::string&)>& save) {
  try {
    SetDialog("Save Truss Display As", OverwritePrompt, PictureFilter);
    if (!AskNameToSave([&save] { savePicture(save); })) return;
    save(TheFileDialog().fileName);
  } catch (const std::exception& failure) {
    ReportSaveFailure(TheFileDialog().fileName, failure.what());
  }
}

void writeScratchCopy() {
  const std::string path = OwnFile("temp_truss.stw");
  try {
    // Written in place: the lock belongs to this very file, and a half written copy does no harm.
    const auto lock = Files().Lock(path);
    Files().Write(path, WriteModel());
    TakeModel(ReadScratchCopy(path));
  } catch (const FileError& error) {
    throw FileError(path + ": " + error.what());
  }
}

void SaveFromMenu() {
  RebuildKeepingResults();
  saveModel(true);
}

void SaveAsFromMenu() {
  RebuildKeepingResults();
  saveModel(false);
}

void OpenFromMenu() { OpenNamed(""); }

void OpenNamed(const std::string& fileName) {
  GridCapacity = 0;
  openModel(fileName);
}

void NewFromMenu() {
  GridCapacity = 0;
  newModel();
}

void ReportSaveFailure(const std::string& fileName, const std::string& reason) {
  ShowMessage(MessageIcon::None, "Error while saving file " + fileName + "\n" + reason);
}

} // namespace strutwright
