#pragma once

#include "StiffnessMatrix.h"

#include <vector>

namespace strutwright {

/// How far elimination can reach, whichever rows change places.  Rows and columns as in the equations, 1..n.
struct Envelope {
  std::vector<int> lowestRow;       ///< of column p: rows below hold 0 in columns 1..p until column p is eliminated
  std::vector<int> rightmostColumn; ///< of column p: rows down to lowestRow[p] hold 0 right of it, now and later

  int Freedoms() const { return static_cast<int>(lowestRow.size()) - 1; }

  /// Whether it leaves no entry out.
  bool IsWhole() const;

  /// How many entries elimination changes in column p, and in all, at most.
  double UpdatesOf(int p) const;
  double Updates() const;
};

/// The envelope of K, from the first and the last column of each row.
Envelope EnvelopeOf(const StiffnessMatrix& K);

/// The envelope that leaves nothing out.
Envelope WholeEnvelope(int n);

} // namespace strutwright
