#pragma once

#include <Eigen/SparseCore>

#include <vector>

namespace strutwright {

/// A column this close to the span of those before it depends on them, as far as double precision can show.
inline constexpr double RankTolerance = 1e-12;

/// The factor R of Q R = B P, its rows at hand.  The first entry of a row stands in the column that the row belongs to;
/// a column that no row belongs to depends on those before it.
struct Echelon {
  using RowMatrix = Eigen::SparseMatrix<double, Eigen::RowMajor, Eigen::Index>;

  RowMatrix R;
  std::vector<Eigen::Index> leading;   ///< column of each row
  std::vector<Eigen::Index> dependent; ///< columns without a row
  std::vector<Eigen::Index> order;     ///< column of B, by column of R
};

/// Brings a sparse matrix into echelon form and finds its rank.  Throws std::runtime_error where that can't be done.
Echelon EchelonOf(const Eigen::SparseMatrix<double>& B);

} // namespace strutwright
