#include "RefinedSolution.h"

#include <Eigen/Sparse>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace strutwright {

namespace {

using Matrix = Eigen::SparseMatrix<double>;
using LongVector = std::vector<long double>;

constexpr int MaxSteps = 40;

/// The equations of the unrestrained freedoms, S K S y = S P with u = S y; S makes the diagonal one.
struct Equations {
  std::vector<int> columnOf; ///< of each freedom; -1 where it is restrained
  Eigen::VectorXd scale;     ///< S
  Eigen::SimplicialLDLT<Matrix> factors;

  bool IsEmpty() const { return scale.size() == 0; }
};

double StiffnessOf(const CheckedMember& member) { return member.axialRigidity / member.length; }

std::array<std::size_t, 4> FreedomsOf(const CheckedMember& member) {
  return {AlongX(member.i), AlongY(member.i), AlongX(member.j), AlongY(member.j)};
}

std::vector<int> NumberFreedoms(const CheckedTruss& truss) {
  std::vector<int> columnOf(truss.FreedomCount() + 1, -1);
  int next = 0;
  for (std::size_t d = 1; d < columnOf.size(); ++d) {
    if (truss.fixed[d] == 0) columnOf[d] = next++;
  }
  return columnOf;
}

int CountOf(const std::vector<int>& columnOf) {
  return static_cast<int>(std::count_if(columnOf.begin(), columnOf.end(), [](int column) { return column >= 0; }));
}

Eigen::VectorXd ScaleOf(const CheckedTruss& truss, const std::vector<int>& columnOf) {
  Eigen::VectorXd diagonal = Eigen::VectorXd::Zero(CountOf(columnOf));
  for (const CheckedMember& member : truss.members) {
    const std::array<double, 4> b{-member.c, -member.s, member.c, member.s};
    const auto freedoms = FreedomsOf(member);
    for (std::size_t p = 0; p < 4; ++p) {
      const int column = columnOf[freedoms[p]];
      if (column >= 0) diagonal(column) += StiffnessOf(member) * b[p] * b[p];
    }
  }
  return diagonal.unaryExpr([](double entry) { return entry > 0 ? 1 / std::sqrt(entry) : 1; });
}

// K = sum of EA/L b b', b = (-c, -s, c, s).   Checked: against a dense elimination in long double.
Matrix ScaledStiffness(const CheckedTruss& truss, const Equations& equations) {
  std::vector<Eigen::Triplet<double>> entries;
  entries.reserve(10 * truss.members.size());
  for (const CheckedMember& member : truss.members) {
    if (!member.CanCarryForce()) continue;
    const std::array<double, 4> b{-member.c, -member.s, member.c, member.s};
    const auto freedoms = FreedomsOf(member);
    for (std::size_t p = 0; p < 4; ++p) {
      for (std::size_t q = 0; q < 4; ++q) {
        const int row = equations.columnOf[freedoms[p]];
        const int column = equations.columnOf[freedoms[q]];
        if (column < 0 || row < column) continue;
        const double share = (equations.scale(row) * StiffnessOf(member)) * equations.scale(column);
        entries.emplace_back(row, column, share * b[p] * b[q]);
      }
    }
  }
  Matrix K(equations.scale.size(), equations.scale.size());
  K.setFromTriplets(entries.begin(), entries.end());
  return K;
}

/// Adds what the elongations of the members exert on the nodes, not prestress.
void AddMemberForces(const CheckedTruss& truss, const LongVector& u, LongVector& forces) {
  for (const CheckedMember& member : truss.members) {
    const long double force = Elongation(member, u) * member.axialRigidity / member.length;
    forces[AlongX(member.i)] += force * member.c;
    forces[AlongY(member.i)] += force * member.s;
    forces[AlongX(member.j)] -= force * member.c;
    forces[AlongY(member.j)] -= force * member.s;
  }
}

double LargestOf(const LongVector& values) {
  long double largest = 0;
  for (const long double value : values) largest = std::max(largest, std::abs(value));
  return static_cast<double>(largest);
}

/// What a correction makes of u: the largest change by the largest value.
double Correct(const Equations& equations, const LongVector& residual, LongVector& u) {
  Eigen::VectorXd r(equations.scale.size());
  for (std::size_t d = 1; d < u.size(); ++d) {
    const int column = equations.columnOf[d];
    if (column >= 0) r(column) = static_cast<double>(residual[d]) * equations.scale(column);
  }
  const Eigen::VectorXd change = equations.scale.cwiseProduct(equations.factors.solve(r));
  if (!change.allFinite()) return std::numeric_limits<double>::infinity();
  for (std::size_t d = 1; d < u.size(); ++d) {
    if (equations.columnOf[d] >= 0) u[d] += change(equations.columnOf[d]);
  }
  const double largest = LargestOf(u);
  return largest > 0 && change.size() > 0 ? change.cwiseAbs().maxCoeff() / largest : 0;
}

LongVector ResidualOf(const CheckedTruss& truss, const std::vector<double>& P, const LongVector& u) {
  LongVector residual(P.begin(), P.end());
  AddMemberForces(truss, u, residual);
  for (std::size_t d = 0; d < residual.size(); ++d) {
    if (d == 0 || truss.fixed[d] != 0) residual[d] = 0;
  }
  return residual;
}

/// Corrects u until it no longer gets better; returns how uncertain it is then.
double Iterate(const CheckedTruss& truss, const Equations& equations, const std::vector<double>& P, LongVector& u) {
  const double cause = LargestOf(ResidualOf(truss, P, u));
  if (!(cause > 0)) return 0;
  double last = std::numeric_limits<double>::infinity();
  for (int step = 0; step < MaxSteps; ++step) {
    const LongVector before = u;
    const double change = Correct(equations, ResidualOf(truss, P, u), u);
    if (!(change < last / 2) && step > 1) {
      u = before;
      break;
    }
    last = change;
    if (change < 1e-18) break;
  }
  return std::max(last, LargestOf(ResidualOf(truss, P, u)) / cause);
}

void FillResults(const CheckedTruss& truss, const std::vector<double>& P, const LongVector& u,
                 RefinedSolution& solution) {
  solution.displacements.assign(u.begin(), u.end());
  LongVector reactions(u.size(), 0);
  AddMemberForces(truss, u, reactions);
  for (std::size_t d = 1; d < u.size(); ++d) {
    solution.reactions[d] = static_cast<double>(-(reactions[d] + P[d]));
  }
  for (const CheckedMember& member : truss.members) {
    const long double elastic = Elongation(member, u) * member.axialRigidity / member.length;
    const long double prestress = member.prestress;
    if (member.CanCarryForce()) solution.forces[At(member.number)] = static_cast<double>(elastic + prestress);
  }
}

void Factorise(const CheckedTruss& truss, Equations& equations) {
  equations.columnOf = NumberFreedoms(truss);
  equations.scale = ScaleOf(truss, equations.columnOf);
  if (!equations.IsEmpty()) equations.factors.compute(ScaledStiffness(truss, equations));
}

} // namespace

struct FactoredTruss::Parts {
  explicit Parts(CheckedTruss of) : truss(std::move(of)) { Factorise(truss, equations); }

  CheckedTruss truss;
  Equations equations;
};

FactoredTruss::FactoredTruss(CheckedTruss truss) : Factored(std::make_unique<const Parts>(std::move(truss))) {}
FactoredTruss::~FactoredTruss() = default;
FactoredTruss::FactoredTruss(FactoredTruss&&) noexcept = default;
FactoredTruss& FactoredTruss::operator=(FactoredTruss&&) noexcept = default;

const CheckedTruss& FactoredTruss::Truss() const { return Factored->truss; }

RefinedSolution FactoredTruss::Solve(const std::vector<double>& P) const {
  const auto& [truss, equations] = *Factored;
  RefinedSolution solution;
  solution.forces.assign(At(truss.memberCount) + 1, 0);
  solution.reactions.assign(truss.FreedomCount() + 1, 0);
  LongVector u(truss.FreedomCount() + 1, 0);
  if (equations.IsEmpty()) {
    solution.uncertainty = 0;
  } else if (equations.factors.info() == Eigen::Success) {
    solution.uncertainty = Iterate(truss, equations, P, u);
  }
  FillResults(truss, P, u, solution);
  return solution;
}

RefinedSolution Refine(const CheckedTruss& truss) { return FactoredTruss(truss).Solve(LoadsWithPrestress(truss)); }

} // namespace strutwright
