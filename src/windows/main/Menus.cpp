#include "Menus.h"

#include "EventGuard.h"
#include "ExchangeCommands.h"
#include "RecentFilesMenu.h"
#include "frmAbout.h"
#include "frmEquations.h"
#include "frmMain.h"
#include "modExamples.h"
#include "modFileCommands.h"
#include "modManual.h"
#include "modRecovery.h"

namespace strutwright {

namespace {

/// The desktop's own keys for a command, or the common ones where it has none: a plain X desktop knows no Save As.
QKeySequence Keys(QKeySequence::StandardKey command, QKeyCombination common) {
  const QList<QKeySequence> own = QKeySequence::keyBindings(command);
  return own.isEmpty() ? QKeySequence(common) : own.first();
}

} // namespace

FrameMenus::FrameMenus(QWidget& owner, frmMain& frame) : MenuBuilder(owner, frame), Owner(owner), Frame(frame) {}

void FrameMenus::AddFileMenu() {
  QMenu& file = *AddMenu("mnuFile", "&File");
  Add(
      file, "mnuNew", "&New", QKeySequence::New, [&frame = Frame] { frame.BeginNewModel(NewFromMenu); },
      "Begins with an empty model");
  Add(file, "mnuOpen", "&Open...", QKeySequence::Open, [&frame = Frame] { frame.Edit("Open", OpenFromMenu); });
  AddExamples(file);
  AddRestore(file);
  Add(
      file, "mnuImport", "&Import...", {}, [&frame = Frame] { ImportChosen(frame); },
      "Brings in a drawing (DXF), tables (csv, tabs) or JSON from another program");
  Add(
      file, "mnuExport", "Ex&port...", {}, [&frame = Frame] { ExportFrom(frame); },
      "Writes the truss for another program: DXF, csv, JSON or TikZ");
  Add(file, "mnuSave", "&Save", QKeySequence::Save, SaveFromMenu);
  Add(file, "mnuSaveAs", "Save &As...", Keys(QKeySequence::SaveAs, Qt::CTRL | Qt::SHIFT | Qt::Key_S), SaveAsFromMenu);
  // Neither separator of the list shows at all times; of two that follow each other the menu shows one.
  file.addSeparator();
  Frame.AddRecentFiles(*new RecentFilesMenu(file, Owner, Frame));
  file.addSeparator();
  Add(file, "mnuExit", "E&xit", Keys(QKeySequence::Quit, Qt::CTRL | Qt::Key_Q),
      [&frame = Frame] { frame.EndProgram(); });
}

/// Lists the examples when the menu is opened: looking for them would only delay the start.
void FrameMenus::AddExamples(QMenu& menu) {
  QMenu* examples = AddSubmenu(menu, "mnuExamples", "Open &Example");
  OnSignal(&menu, &QMenu::aboutToShow, examples, [this_ = *this, examples] {
    if (!examples->isEmpty()) return;
    for (const Example& each : Examples()) {
      const QString text = QString::fromStdString(each.title).replace('&', "&&");
      FrameMenus(this_).Add(
          *examples, "mnuExample_" + QString::number(examples->actions().size() + 1), text, {},
          [path = each.path, &frame = this_.Frame] { frame.Edit("Open", [&] { OpenExample(path); }); },
          QString::fromStdString(each.tip));
    }
    examples->setEnabled(!examples->isEmpty());
  });
}

/// The entry is enabled as things are when the menu is opened: another copy of the program may have taken the model.
void FrameMenus::AddRestore(QMenu& menu) {
  QAction* restore = Add(
      menu, "mnuRestore", "&Restore Unsaved Model", {},
      [&frame = Frame] { frame.Edit("Restore", RestoreUnsavedModel); },
      "Brings back what was not saved when the program last ended");
  restore->setEnabled(HasUnsavedModel());
  OnSignal(&menu, &QMenu::aboutToShow, restore, [restore] { restore->setEnabled(HasUnsavedModel()); });
}

void FrameMenus::AddAnalyse(QMenu& menu) {
  Add(
      menu, "mnuAnalyse", "&Analyse", Qt::Key_F5, [&frame = Frame] { frame.runAnalysis(); },
      "Computes displacements, member forces and reactions");
}

void FrameMenus::AddCheck(QMenu& menu) {
  Add(
      menu, "mnuCheck", "Chec&k", Qt::Key_F6, [&frame = Frame] { frame.ShowCheck(); },
      "How far the results can be trusted, and what is wrong with the model where they can't");
}

void FrameMenus::AddHelpMenu() {
  QMenu& help = *AddMenu("mnuHelp", "&Help");
  Add(help, "mnuSWHelp", "&Strutwright Help", QKeySequence::HelpContents, [] {});
  const auto add = [&](const QString& name, const QString& text, const char* page, const QString& toolTip) {
    Add(
        help, name, text, {}, [page] { OpenManualPage(page); }, toolTip);
  };
  add("mnuManual", "User &Manual", "index", "Opens the manual in the browser");
  add("mnuSigns", "Sign Conventions and &Units", "signs", "Which way is positive, and what is in which unit");
  add("mnuKeys", "&Keyboard Shortcuts", "keys", "Every key of the program");
  Add(help, "mnuAbout", "&About Strutwright", {}, [&frame = Frame] { frmAbout(&frame).exec(); });
}

QList<QMenu*> BuildEquationMenus(frmMain& frame, frmEquations& equations) {
  FrameMenus build(equations, frame);
  build.AddFileMenu();
  equations.AddMenus(build);
  QMenu& analysis = *build.AddMenu("mnuAnalysis", "&Analysis");
  build.AddAnalyse(analysis);
  build.AddCheck(analysis);
  build.AddHelpMenu();
  return build.Menus();
}

} // namespace strutwright
