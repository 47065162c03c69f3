#pragma once

#include "Envelope.h"
#include "StiffnessMatrix.h"

#include <cstddef>
#include <vector>

namespace strutwright {

/// The equations K D = P while they are solved, row by row.  Of each row the entries from the first to the last column
/// that can hold something are stored, one after another; what is not stored is +0.  Rows and columns 1..n.
class RowEquations {
 public:
  /// P: (0..n), entry 0 is not used.
  RowEquations(const StiffnessMatrix& stiffness, std::vector<float> P, Envelope envelope);

  int Freedoms() const { return Within.Freedoms(); }
  const Envelope& Reach() const { return Within; }

  /// The last row that may hold something in column p before that is eliminated.
  int LowestRow(int p) const { return Within.lowestRow[At(p)]; }

  /// An entry that is stored.
  float& K(int row, int column) { return Values[Begin[At(row)] + At(column)]; }
  float K(int row, int column) const { return Values[Begin[At(row)] + At(column)]; }

  /// The right-hand side, one after another in memory.
  float& P(int row) { return RightHandSide[At(row)]; }
  float P(int row) const { return RightHandSide[At(row)]; }

  /// The last column of a row that may hold something now.
  int LastColumn(int row) const { return Last[At(row)]; }
  void ExtendTo(int row, int column);

  /// Exchanges two rows that column p reaches, P included, from column p on.
  void Exchange(int one, int other, int p);

  /// Turns loads of -0 into 0 in rows from `row` on, none of which has been reached.  Only the first call has work.
  void ClearSignsOfZeroLoads(int row);

  /// False where a number is not finite while entries are left out: what they are multiplied by counts then.
  bool CanBeTrusted() const;

 private:
  static std::size_t At(int number) { return static_cast<std::size_t>(number); }
  void LayOutRows();

  Envelope Within;
  std::vector<std::size_t> Begin; ///< of each row: the place of its column 0, if that were stored
  std::vector<int> Last;
  std::vector<float> Values;
  std::vector<float> RightHandSide;
  bool SignsCleared = false;
};

} // namespace strutwright
