#include "frmAbout.h"

#include "EventGuard.h"
#include "Icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVersionNumber>

namespace strutwright {

namespace {

constexpr int IconSize = 64; // pixels, on a screen of plain density
constexpr int TextWidth = 460;

constexpr const char* Description =
    "Strutwright is a tool for the analysis of pin-jointed trusses in the plane, with a graphical interface for the "
    "model and for its results.";
constexpr const char* Authorship = "Made by the Strutwright contributors.";
constexpr const char* Invitation = "Feedback, good and bad, is welcome and forms this program's future.";
constexpr const char* Contact = "Reports and ideas reach the contributors in the place where you got the program.";
constexpr const char* Feature =
    "View the stiffness matrix method step by step: the window Stiffness Equations builds the equations of your truss "
    "one member at a time, restrains the supports and solves.";
constexpr const char* Disclaimer =
    "Strutwright is free software under the GNU General Public License, version 3 or later, and comes without any "
    "warranty. It is meant for learning: check its results by other means before anything is built on them.";

} // namespace

QString VersionText(const QString& version) {
  const QVersionNumber number = QVersionNumber::fromString(version);
  return QString("Version %1.%2.%3").arg(number.majorVersion()).arg(number.minorVersion()).arg(number.microVersion());
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle("About Strutwright");
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(BuildHead());
  whole->addWidget(NewText("lblDescription", Description));
  whole->addWidget(NewText("Label4", Feature));
  whole->addWidget(NewText("Label1", Authorship));
  whole->addWidget(NewText("Label2", Invitation));
  whole->addWidget(NewText("Label3", Contact));
  whole->addWidget(NewText("lblDisclaimer", Disclaimer));
  auto* cmdOK = new QPushButton("OK");
  cmdOK->setObjectName("cmdOK");
  cmdOK->setToolTip("Closes this window");
  cmdOK->setDefault(true);
  OnSignal(cmdOK, &QPushButton::clicked, this, [this] { accept(); });
  whole->addWidget(cmdOK, 0, Qt::AlignRight);
}

QLayout* frmAbout::BuildHead() {
  auto* picIcon = new QLabel;
  picIcon->setObjectName("picIcon");
  picIcon->setAccessibleName("The program's icon");
  picIcon->setPixmap(IconNamed("strutwright").pixmap(QSize(IconSize, IconSize), devicePixelRatio()));
  QLabel* title = NewText("lblTitle", "Strutwright");
  QFont large = title->font();
  large.setPointSizeF(1.6 * large.pointSizeF());
  large.setBold(true);
  title->setFont(large);
  auto* names = new QVBoxLayout;
  names->addStretch();
  names->addWidget(title);
  names->addWidget(NewText("lblVersion", VersionText(STRUTWRIGHT_VERSION)));
  names->addStretch();
  auto* head = new QHBoxLayout;
  head->addWidget(picIcon);
  head->addLayout(names, 1);
  return head;
}

QLabel* frmAbout::NewText(const QString& name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(TextWidth);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

} // namespace strutwright
