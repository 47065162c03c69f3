#include "GeneralSolvers.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#ifdef WITH_EIGEN
#include <Eigen/SparseCholesky>
#endif

#ifdef WITH_LAPACK
extern "C" void dgbsv_(const int* n, const int* below, const int* above, const int* rightHandSides, double* band,
                       const int* bandRows, int* pivots, double* solution, const int* solutionRows, int* info);
#endif

namespace strutwright {

namespace {

#ifdef WITH_EIGEN
void SolveWithEigen(const GeneralEquations& equations) {
  std::vector<Eigen::Triplet<double>> triplets;
  for (const GeneralEquations::Entry& entry : equations.entries) {
    if (entry.column <= entry.row) triplets.emplace_back(entry.row - 1, entry.column - 1, entry.value);
  }
  Eigen::SparseMatrix<double> K(equations.freedoms, equations.freedoms);
  K.setFromTriplets(triplets.begin(), triplets.end());
  Eigen::VectorXd P(equations.freedoms);
  for (int i = 0; i < equations.freedoms; ++i) P[i] = equations.rightHandSide[static_cast<std::size_t>(i + 1)];
  const Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> factors(K);
  const Eigen::VectorXd D = factors.solve(P);
  if (factors.info() != Eigen::Success || !D.allFinite()) throw std::runtime_error("Eigen found no solution");
}
#endif

#ifdef WITH_LAPACK
constexpr int WidestBand = 200;

int HalfBand(const GeneralEquations& equations) {
  int widest = 0;
  for (const GeneralEquations::Entry& entry : equations.entries) {
    widest = std::max(widest, std::abs(entry.row - entry.column));
  }
  return widest;
}

void SolveWithLapack(const GeneralEquations& equations) {
  const int n = equations.freedoms;
  const int half = HalfBand(equations);
  const int rows = 3 * half + 1;
  std::vector<double> band(static_cast<std::size_t>(rows) * static_cast<std::size_t>(n));
  for (const GeneralEquations::Entry& entry : equations.entries) {
    const int row = 2 * half + entry.row - entry.column;
    band[static_cast<std::size_t>(entry.column - 1) * static_cast<std::size_t>(rows) + static_cast<std::size_t>(row)] =
        entry.value;
  }
  std::vector<double> solution(equations.rightHandSide.begin() + 1, equations.rightHandSide.end());
  std::vector<int> pivots(static_cast<std::size_t>(n));
  const int one = 1;
  int info = 0;
  dgbsv_(&n, &half, &half, &one, band.data(), &rows, pivots.data(), solution.data(), &n, &info);
  if (info != 0) throw std::runtime_error("LAPACK found no solution");
}
#endif

} // namespace

std::vector<GeneralSolver> GeneralSolvers() {
  std::vector<GeneralSolver> solvers;
#ifdef WITH_EIGEN
  solvers.push_back({"Eigen", [](const GeneralEquations&) { return true; }, SolveWithEigen});
#endif
#ifdef WITH_LAPACK
  solvers.push_back(
      {"LAPACK", [](const GeneralEquations& each) { return HalfBand(each) <= WidestBand; }, SolveWithLapack});
#endif
  return solvers;
}

} // namespace strutwright
