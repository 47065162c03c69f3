#include "Motions.h"

#include <Eigen/SPQRSupport>
#include <Eigen/Sparse>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace strutwright {

namespace {

using Matrix = Eigen::SparseMatrix<double>;
using RowMatrix = Eigen::SparseMatrix<double, Eigen::RowMajor, SuiteSparse_long>;

/// A column this close to the span of the others depends on them.
constexpr double RankTolerance = 1e-6;
/// Least eigenvalue of the product of the matrix with its transpose from which on no column can be that close.
constexpr double SurelyIndependent = 1e-10;

/// One row a member that bears, one column an unrestrained freedom that a member touches: elongation by displacement.
struct Kinematics {
  Matrix elongations;
  std::vector<std::size_t> freedoms; ///< of the columns
  std::vector<std::size_t> loose;    ///< unrestrained freedoms that no member touches
};

struct Entry {
  std::size_t freedom;
  double value;
};

std::array<Entry, 4> EntriesOf(const CheckedMember& member) {
  return {{{AlongX(member.i), -member.c},
           {AlongY(member.i), -member.s},
           {AlongX(member.j), member.c},
           {AlongY(member.j), member.s}}};
}

std::vector<char> TouchedFreedoms(const CheckedTruss& truss) {
  std::vector<char> touched(truss.FreedomCount() + 1, 0);
  for (const CheckedMember& member : truss.members) {
    if (!member.Bears()) continue;
    for (const Entry& entry : EntriesOf(member)) {
      if (entry.value != 0) touched[entry.freedom] = 1;
    }
  }
  return touched;
}

Kinematics KinematicsOf(const CheckedTruss& truss) {
  Kinematics kinematics;
  const std::vector<char> touched = TouchedFreedoms(truss);
  std::vector<int> columnOf(touched.size(), -1);
  for (std::size_t d = 1; d < touched.size(); ++d) {
    if (truss.fixed[d] != 0) continue;
    if (touched[d] != 0) columnOf[d] = static_cast<int>(kinematics.freedoms.size());
    (touched[d] != 0 ? kinematics.freedoms : kinematics.loose).push_back(d);
  }
  std::vector<Eigen::Triplet<double>> entries;
  int row = 0;
  for (const CheckedMember& member : truss.members) {
    if (!member.Bears()) continue;
    for (const Entry& entry : EntriesOf(member)) {
      const int column = columnOf[entry.freedom];
      if (column >= 0 && entry.value != 0) entries.emplace_back(row, column, entry.value);
    }
    ++row;
  }
  kinematics.elongations.resize(row, static_cast<int>(kinematics.freedoms.size()));
  kinematics.elongations.setFromTriplets(entries.begin(), entries.end());
  return kinematics;
}

/// A cheap proof that the columns are independent: the least eigenvalue of S = B' B by inverse iteration.  A singular
/// matrix, factorised with rounding errors, would give one near 1e-15.
bool AreSurelyIndependent(const Matrix& B) {
  if (B.rows() < B.cols()) return false;
  const Matrix S = B.transpose() * B;
  const Eigen::SimplicialLDLT<Matrix> factors(S);
  if (factors.info() != Eigen::Success) return false;
  Eigen::VectorXd v(B.cols());
  for (Eigen::Index d = 0; d < v.size(); ++d) v(d) = std::sin(1.0 + static_cast<double>(d * d % 1009));
  double least = 0;
  for (int step = 0; step < 3; ++step) {
    v = factors.solve(v / v.norm()).eval();
    if (!v.allFinite()) return false;
    least = 1 / v.norm();
  }
  return least > SurelyIndependent;
}

/// The factor R with its rows at hand.  The first entry of a row stands in the column that the row belongs to; a
/// column that no row belongs to depends on those before it.
struct Echelon {
  RowMatrix R;
  std::vector<Eigen::Index> leading;   ///< column of each row
  std::vector<Eigen::Index> dependent; ///< columns without a row
  std::vector<Eigen::Index> order;     ///< column of the matrix that was factorised, by column of R
};

Echelon Factorise(const Matrix& B) {
  Eigen::SPQR<Matrix> QR;
  QR.setPivotThreshold(RankTolerance);
  QR.setSPQROrdering(SPQR_ORDERING_AMD);
  QR.compute(B);
  Echelon echelon{RowMatrix(QR.matrixR()), {}, {}, {}};
  const auto permutation = QR.colsPermutation();
  std::vector<char> independent(static_cast<std::size_t>(B.cols()), 0);
  for (Eigen::Index row = 0; row < QR.rank(); ++row) {
    RowMatrix::InnerIterator entry(echelon.R, row);
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

/// The motion in which a dependent column has 1, the other dependent ones nothing: R x = 0 by back substitution.
std::vector<double> MotionOf(const Echelon& echelon, Eigen::Index dependent) {
  std::vector<double> x(echelon.order.size(), 0);
  x[static_cast<std::size_t>(dependent)] = 1;
  for (std::size_t row = echelon.leading.size(); row-- > 0;) {
    double sum = 0;
    double pivot = 1;
    for (RowMatrix::InnerIterator entry(echelon.R, static_cast<Eigen::Index>(row)); entry; ++entry) {
      if (entry.col() == echelon.leading[row]) pivot = entry.value();
      if (entry.col() > echelon.leading[row]) sum += entry.value() * x[static_cast<std::size_t>(entry.col())];
    }
    x[static_cast<std::size_t>(echelon.leading[row])] = -sum / pivot;
  }
  return x;
}

void AddLooseMotions(const CheckedTruss& truss, const Kinematics& kinematics, std::size_t most, Motions& motions) {
  motions.mechanisms += static_cast<int>(kinematics.loose.size());
  for (const std::size_t freedom : kinematics.loose) {
    if (motions.basis.size() == most) return;
    motions.basis.emplace_back(truss.FreedomCount() + 1, 0.0);
    motions.basis.back()[freedom] = 1;
  }
}

void AddDependentMotions(const CheckedTruss& truss, const Kinematics& kinematics, std::size_t most, Motions& motions) {
  const Echelon echelon = Factorise(kinematics.elongations);
  motions.mechanisms += static_cast<int>(echelon.dependent.size());
  motions.redundants += static_cast<int>(echelon.dependent.size());
  for (const Eigen::Index dependent : echelon.dependent) {
    if (motions.basis.size() >= most) return;
    const std::vector<double> x = MotionOf(echelon, dependent);
    motions.basis.emplace_back(truss.FreedomCount() + 1, 0.0);
    for (std::size_t column = 0; column < x.size(); ++column) {
      motions.basis.back()[kinematics.freedoms[static_cast<std::size_t>(echelon.order[column])]] = x[column];
    }
  }
}

} // namespace

Motions FindMotions(const CheckedTruss& truss, int mostMotions) {
  const Kinematics kinematics = KinematicsOf(truss);
  const auto most = static_cast<std::size_t>(mostMotions);
  Motions motions;
  motions.redundants = static_cast<int>(kinematics.elongations.rows() - kinematics.elongations.cols());
  AddLooseMotions(truss, kinematics, most, motions);
  if (kinematics.freedoms.empty() || AreSurelyIndependent(kinematics.elongations)) return motions;
  AddDependentMotions(truss, kinematics, most, motions);
  return motions;
}

} // namespace strutwright
