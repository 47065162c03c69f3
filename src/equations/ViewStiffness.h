#pragma once

#include "MemberMatrix.h"
#include "StiffnessMatrix.h"
#include "modMember.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace strutwright {

/// Which freedoms are restrained: (0..n), 1 marks one.
using FreedomFlags = std::shared_ptr<const std::vector<std::int16_t>>;

/// One member's share of K.
struct MemberShare {
  int member = 0;            ///< whose freedoms it went to
  int matrixOf = 0;          ///< whose matrix it is: an ignored member adds its predecessor's; 0: a matrix of zeros
  MemberFreedoms freedoms{}; ///< where it goes
  MemberMatrix k;
  std::array<float, 16> before{}; ///< the entries of K that it was added to, row after row, as they were

  /// What it adds to K(row, column), in kN/mm.
  float At(int row, int column) const;
};

/// The equations view's K, and what it was made of.
class ViewStiffness {
 public:
  /// Zeros for so many freedoms.
  explicit ViewStiffness(int freedoms) : K(freedoms) {}

  /// Adds a share to K, entry for entry as AddMemberToGlobal does.
  void Add(MemberShare share);

  /// Takes the last share out again: every entry is what it was before.  Nothing may have been cleared since.
  void TakeBack();

  /// Clears the rows and columns of the marked freedoms, as ApplySupports does.
  void Clear(FreedomFlags restrained);

  const StiffnessMatrix& Values() const { return K; }
  const std::vector<MemberShare>& Shares() const { return Added; }

  /// For each clearing the last member whose share was added before it; 0 where none was.
  std::vector<int> MembersBeforeClearings() const;

  /// Where the value of an entry begins.
  struct Origin {
    std::size_t firstShare = 0; ///< shares from here on count
    FreedomFlags cleared;       ///< what cleared the entry before them; none when nothing did
  };
  Origin OriginOf(int row, int column) const;

 private:
  struct Clearing {
    std::size_t sharesBefore;
    FreedomFlags restrained;
  };

  StiffnessMatrix K;
  std::vector<MemberShare> Added;
  std::vector<Clearing> Clearings;
};

} // namespace strutwright
