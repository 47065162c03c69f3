#include "Echelon.h"

#include <Eigen/SPQRSupport>
#include <Eigen/Sparse>

#include <cstddef>
#include <stdexcept>

namespace strutwright {

Echelon EchelonOf(const Eigen::SparseMatrix<double>& B) {
  Eigen::SPQR<Eigen::SparseMatrix<double>> QR;
  QR.setPivotThreshold(RankTolerance);
  QR.setSPQROrdering(SPQR_ORDERING_AMD);
  QR.compute(B);
  if (QR.info() != Eigen::Success) throw std::runtime_error("the rank of the truss could not be found");
  Echelon echelon{Echelon::RowMatrix(QR.matrixR()), {}, {}, {}};
  const auto permutation = QR.colsPermutation();
  std::vector<char> independent(static_cast<std::size_t>(B.cols()), 0);
  for (Eigen::Index row = 0; row < QR.rank(); ++row) {
    Echelon::RowMatrix::InnerIterator entry(echelon.R, row);
    while (entry && entry.value() == 0) ++entry;
    echelon.leading.push_back(entry.col());
    independent[static_cast<std::size_t>(entry.col())] = 1;
  }
  for (Eigen::Index column = 0; column < B.cols(); ++column) {
    if (independent[static_cast<std::size_t>(column)] == 0) echelon.dependent.push_back(column);
    echelon.order.push_back(permutation.indices()(column));
  }
  return echelon;
}

} // namespace strutwright
