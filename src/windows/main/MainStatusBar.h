#pragma once

#include "CheckReport.h"

#include <functional>
#include <utility>

#include <QPointer>
#include <QStatusBar>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace strutwright {

/// The status bar `stsBar`: five panels, an offer where there is one, then a hint that goes by itself, or the progress
/// of long work.
class MainStatusBar : public QStatusBar {
 public:
  explicit MainStatusBar(QWidget* parent);

  void ShowCoordinates(const QString& text);
  void ShowMouseMode(const QString& text);
  void ShowAnalysis(const QString& text);
  /// What the check of the answer has to say; where it has something against it, the words stand on orange or red.
  void ShowCheck(const QString& text, CheckLevel level);
  /// Called when the user clicks on what the check has to say.
  void SetCheckNotice(std::function<void()> listener) { CheckListener = std::move(listener); }
  /// Whether live analysis is on; an empty text where it is not.
  void ShowLive(const QString& text);
  /// Offers the clear drawing in place of the one on screen, or no longer.
  void OfferClearDrawing(bool offer);
  /// Called when the user takes that offer.
  void SetOfferNotice(std::function<void()> listener) { OfferListener = std::move(listener); }
  /// Shows a button that offers to give new members E and A from the control board, until it is clicked or the next
  /// model begins.
  void OfferRigidity();
  void EndOffer();
  void SetRigidityNotice(std::function<void()> listener) { RigidityListener = std::move(listener); }

  void ShowHint(const QString& text);
  /// What stands where the hint stands whenever there is no hint; an empty text ends it.
  void ShowNote(const QString& text);

  /// Shows how far long work is and takes paint events and clicks on Cancel, nothing else; a request to close the
  /// window meanwhile is kept for later.  False once the user has cancelled.
  bool ShowProgress(const QString& text, double fraction);
  void EndProgress();

  /// The widget in which clicks get through while progress shows.
  const QPushButton* CancelButton() const { return Cancel; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddOffer();
  void Say(const QString& text);
  QLabel* AddPanel(const QString& name, const QString& description, int characters);

  QLabel* Coordinates = nullptr;
  QLabel* MouseMode = nullptr;
  QLabel* Analysis = nullptr;
  QLabel* Check = nullptr;
  QLabel* Live = nullptr;
  QLabel* Hint = nullptr;
  QProgressBar* Progress = nullptr;
  QPushButton* Cancel = nullptr;
  QPushButton* Offer = nullptr;
  QPushButton* Rigidity = nullptr;
  std::function<void()> RigidityListener;
  std::function<void()> CheckListener;
  std::function<void()> OfferListener;
  QTimer HintTimer;
  QString Note;
  bool Cancelled = false;
  QPointer<QWidget> FocusBefore; ///< what had the focus when the progress was shown
};

} // namespace strutwright
