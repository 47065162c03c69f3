#include "Echelon.h"

#include <Eigen/OrderingMethods>
#include <Eigen/SparseQR>

#include <stdexcept>

namespace strutwright {

/// Eigen's own factorisation, a column after the other; it moves what depends on others behind the rest.
Echelon EchelonOf(const Eigen::SparseMatrix<double>& B) {
  Eigen::SparseQR<Eigen::SparseMatrix<double>, Eigen::COLAMDOrdering<int>> QR;
  QR.setPivotThreshold(RankTolerance);
  QR.compute(B);
  if (QR.info() != Eigen::Success) throw std::runtime_error("the rank of the truss could not be found");
  Echelon echelon{Echelon::RowMatrix(QR.matrixR()), {}, {}, {}};
  for (Eigen::Index column = 0; column < B.cols(); ++column) {
    (column < QR.rank() ? echelon.leading : echelon.dependent).push_back(column);
    echelon.order.push_back(QR.colsPermutation().indices()(column));
  }
  return echelon;
}

} // namespace strutwright
