#pragma once

#include <QList>

class QAction;
class QMenu;

namespace strutwright {

class CommandFrame;
class MenuBuilder;

/// What the pop-up menu of the display offers for the node or the member under the pointer: entries before its own.
class PartMenu {
 public:
  PartMenu(CommandFrame& frame, QMenu& popUp, MenuBuilder& build);

  /// Shows the entries of the node at a world point, or else of the member there; none where there is neither.
  void Offer(float x, float y);

 private:
  QAction* Add(QMenu& popUp, MenuBuilder& build, const char* name, const QString& text, void (PartMenu::*command)());
  void AddSupport(QMenu& popUp, MenuBuilder& build, const char* name, const QString& text, int code);
  void ShowJoint();
  void ChangeLoad();
  void RemoveNode();
  void ChangeRigidity();
  void ChangePrestress();
  void RemoveMember();
  bool HasNode() const;
  bool HasMember() const;

  CommandFrame& Frame;
  int Node = 0; ///< 0 where none is meant
  int Member = 0;
  QAction* Title = nullptr;
  QList<QAction*> OfNode;
  QList<QAction*> OfMember;
  QAction* End = nullptr;
};

} // namespace strutwright
