#pragma once

#include "modInspectors.h"

#include <cstdint>

#include <QDialog>

namespace strutwright {

class CommandFrame;

/// The member inspector: properties, stiffness matrix and results of one member, which it can delete.
class frmMemberDetails : public QDialog {
 public:
  explicit frmMemberDetails(CommandFrame& frame);
  ~frmMemberDetails() override;

  /// Fills the grids with the member as it is now.  member: 1..MemberCount.
  void setMember(std::int16_t member);

 private:
  void BuildGrids();
  void BuildButtons();
  void Delete();

  CommandFrame& Frame;
  MemberDetails Details;
  std::int16_t Member = 0;
};

} // namespace strutwright
