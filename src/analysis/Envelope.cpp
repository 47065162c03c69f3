#include "Envelope.h"

#include <algorithm>
#include <cstddef>

namespace strutwright {

namespace {

/// The first and the last column with an entry; the diagonal is taken for one.
struct Extent {
  int first;
  int last;
};

Extent ExtentOf(const StiffnessMatrix& K, int row) {
  const auto entries = K.Row(row);
  if (entries.empty()) return {row, row};
  return {std::min(row, entries.front().column), std::max(row, entries.back().column)};
}

} // namespace

bool Envelope::IsWhole() const {
  return Freedoms() == 0 || (lowestRow[1] == Freedoms() && rightmostColumn[1] == Freedoms());
}

double Envelope::UpdatesOf(int p) const {
  const auto at = static_cast<std::size_t>(p);
  return static_cast<double>(lowestRow[at] - p) * (rightmostColumn[at] - p + 1);
}

double Envelope::Updates() const {
  double sum = 0;
  for (int p = 1; p <= Freedoms(); ++p) sum += UpdatesOf(p);
  return sum;
}

// Eliminating column p touches no row below lowestRow[p].  The rows reached only grow with p, so none of them gets an
// entry to the right of the largest last column among the rows reached so far.
Envelope EnvelopeOf(const StiffnessMatrix& K) {
  const auto size = static_cast<std::size_t>(K.Freedoms()) + 1;
  Envelope envelope{std::vector<int>(size), std::vector<int>(size)};
  for (int row = 1; row <= K.Freedoms(); ++row) {
    envelope.lowestRow[static_cast<std::size_t>(ExtentOf(K, row).first)] = row;
  }
  int row = 0;
  int last = 0;
  for (std::size_t p = 1; p < size; ++p) {
    envelope.lowestRow[p] = std::max(envelope.lowestRow[p], envelope.lowestRow[p - 1]);
    while (row < envelope.lowestRow[p]) last = std::max(last, ExtentOf(K, ++row).last);
    envelope.rightmostColumn[p] = last;
  }
  return envelope;
}

Envelope WholeEnvelope(int n) {
  const auto size = static_cast<std::size_t>(n) + 1;
  return {std::vector<int>(size, n), std::vector<int>(size, n)};
}

} // namespace strutwright
