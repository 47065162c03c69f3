#include "BracefoldCommandLine.h"
#include "NativeConsole.h"
#include "NativeFileSystem.h"
#include "NativePlaces.h"
#include "Platform.h"
#include "QtFileDialog.h"
#include "QtMessageBoxes.h"
#include "QtShell.h"
#include "frmBracefold.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <QApplication>

namespace strutwright {

namespace {

/// Where there is no display after all, Qt would abort: the program ends in order instead.
void EndInOrder(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type != QtFatalMsg) return static_cast<void>(std::cerr << text.toStdString() << '\n');
  std::cerr << "bracefold: the window can't be shown; --out FILE writes a model without one" << std::endl;
  std::_Exit(BracefoldNoWindow);
}

int ShowWindow(char* programName, const TrussFamily& family, const TrussTexts& texts) {
  // Qt would end the program where there is none.
  if (!HasDisplay()) {
    std::cerr << "bracefold: there is no display for the window; --out FILE writes a model without one\n";
    return BracefoldUsage;
  }
  int count = 1; // the other arguments are not Qt's
  char* arguments[] = {programName, nullptr};
  qInstallMessageHandler(EndInOrder);
  const QApplication application(count, arguments);
  qInstallMessageHandler(nullptr);
  QtMessageBoxes messages;
  QtFileDialog dialog;
  QtShell shell;
  frmBracefold window(family, texts);
  ThePlatform().messages = &messages;
  ThePlatform().dialog = &dialog;
  ThePlatform().shell = &shell;
  ThePlatform().programFolder = ExecutableFolder();
  window.show();
  return QApplication::exec();
}

int RunProgram(int argc, char** argv) {
  SetUpConsole();
  NativeFileSystem files;
  ThePlatform().files = &files;
  const auto window = [argv](const TrussFamily& family, const TrussTexts& texts) {
    return ShowWindow(argv[0], family, texts);
  };
  return RunBracefold(ProgramArguments(argc, argv), window, std::cout, std::cerr);
}

} // namespace

} // namespace strutwright

int main(int argc, char** argv) {
  try {
    return strutwright::RunProgram(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "bracefold: " << failure.what() << '\n';
    return strutwright::BracefoldNoWindow;
  }
}
