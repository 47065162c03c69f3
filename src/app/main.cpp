#include "EventGuard.h"
#include "ModelToOpen.h"
#include "NativeFileSystem.h"
#include "NativeFileTypes.h"
#include "NativePlaces.h"
#include "Platform.h"
#include "QtClipboard.h"
#include "QtFileDialog.h"
#include "QtMessageBoxes.h"
#include "QtPaper.h"
#include "QtPrinters.h"
#include "QtSettingsStore.h"
#include "QtShell.h"
#include "frmMain.h"

#include <cstdio>
#include <exception>
#include <string>

#include <QApplication>

namespace {

int RunProgram(int argc, char** argv) {
  QApplication application(argc, argv); // takes its own arguments out
  const std::string model = strutwright::ModelToOpen(argc, argv);
  strutwright::QtMessageBoxes messages;
  strutwright::QtFileDialog dialog;
  strutwright::QtClipboard clipboard;
  strutwright::QtShell shell;
  strutwright::QtSettingsStore settings;
  strutwright::NativeFileSystem files;
  const auto fileTypes = strutwright::MakeFileTypeRegistry(files);
  strutwright::QtPaper paper;
  strutwright::QtPrinters printers;
  strutwright::frmMain frame;
  strutwright::ThePlatform() = {.messages = &messages,
                                .files = &files,
                                .dialog = &dialog,
                                .programFolder = strutwright::ExecutableFolder(),
                                .dataFolder = strutwright::UserDataFolder(),
                                .clipboard = &clipboard,
                                .shell = &shell,
                                .settings = &settings,
                                .fileTypes = fileTypes.get(),
                                .executable = strutwright::ExecutablePath(),
                                .icon = strutwright::IconPath(strutwright::ExecutableFolder()),
                                .paper = &paper,
                                .printers = &printers,
                                .hints = &frame.Status(),
                                .progress = &frame.Status()};
  frame.RestorePlace();
  frame.show();
  strutwright::Guard([&frame] { frame.MDIForm_Load(); });
  if (!model.empty()) frame.OpenModel(model);
  return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
  try {
    return RunProgram(argc, argv);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "Strutwright can't start: %s\n", failure.what());
    return 1;
  }
}
