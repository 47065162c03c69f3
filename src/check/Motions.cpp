#include "Motions.h"

#include "Echelon.h"

#include <Eigen/Sparse>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>
#include <utility>

namespace strutwright {

namespace {

using Matrix = Eigen::SparseMatrix<double>;
using RowMatrix = Echelon::RowMatrix;

/// Least eigenvalue of the product of the matrix with its transpose that inverse iteration distinguishes from rounding.
constexpr double MinCertain = 1e-10;
/// The roundings of coordinates that are taken to have met in the worst way.
constexpr double Roundings = 2;
constexpr double CautiousRoundings = 6;
constexpr int InverseSteps = 6;
constexpr std::size_t MaxWithinRounding = 20;

/// One row a member that bears, one column an unrestrained freedom that a member touches: elongation by displacement.
struct Kinematics {
  Matrix elongations;
  std::vector<std::size_t> members;  ///< of the rows, indices in the truss
  std::vector<std::size_t> freedoms; ///< of the columns
  std::vector<std::size_t> loose;    ///< unrestrained freedoms that no member touches
};

struct Entry {
  std::size_t freedom;
  double value;
};

std::array<Entry, 4> EntriesOf(const CheckedMember& member, const Direction& direction) {
  return {{{AlongX(member.i), -direction.c},
           {AlongY(member.i), -direction.s},
           {AlongX(member.j), direction.c},
           {AlongY(member.j), direction.s}}};
}

std::vector<std::size_t> CarryingMembers(const CheckedTruss& truss) {
  std::vector<std::size_t> members;
  for (std::size_t m = 0; m < truss.members.size(); ++m) {
    if (truss.members[m].CanCarryForce()) members.push_back(m);
  }
  return members;
}

std::vector<char> TouchedFreedoms(const CheckedTruss& truss, const std::vector<std::size_t>& members,
                                  const std::vector<Direction>& directions) {
  std::vector<char> touched(truss.FreedomCount() + 1, 0);
  for (const std::size_t m : members) {
    for (const Entry& entry : EntriesOf(truss.members[m], directions[m])) {
      if (entry.value != 0) touched[entry.freedom] = 1;
    }
  }
  return touched;
}

Kinematics KinematicsOf(const CheckedTruss& truss, const std::vector<Direction>& directions) {
  Kinematics kinematics;
  kinematics.members = CarryingMembers(truss);
  const std::vector<char> touched = TouchedFreedoms(truss, kinematics.members, directions);
  std::vector<int> columnOf(touched.size(), -1);
  for (std::size_t d = 1; d < touched.size(); ++d) {
    if (truss.fixed[d] != 0) continue;
    if (touched[d] != 0) columnOf[d] = static_cast<int>(kinematics.freedoms.size());
    (touched[d] != 0 ? kinematics.freedoms : kinematics.loose).push_back(d);
  }
  std::vector<Eigen::Triplet<double>> entries;
  int row = 0;
  for (const std::size_t m : kinematics.members) {
    for (const Entry& entry : EntriesOf(truss.members[m], directions[m])) {
      const int column = columnOf[entry.freedom];
      if (column >= 0 && entry.value != 0) entries.emplace_back(row, column, entry.value);
    }
    ++row;
  }
  kinematics.elongations.resize(row, static_cast<int>(kinematics.freedoms.size()));
  kinematics.elongations.setFromTriplets(entries.begin(), entries.end());
  return kinematics;
}

/// The vector with which inverse iteration begins: unlikely to be at right angles to any motion.
Eigen::VectorXd AnyVector(Eigen::Index size) {
  Eigen::VectorXd v(size);
  for (Eigen::Index d = 0; d < size; ++d) v(d) = std::sin(1.0 + static_cast<double>(d * d % 1009));
  return v;
}

/// The motion that stretches the members least, by inverse iteration with S = B' B; nothing where S is too near to a
/// singular matrix for that.  Such a matrix, factorised with rounding errors, would give an eigenvalue near 1e-15.
std::optional<Eigen::VectorXd> LeastStretched(const Matrix& B) {
  if (B.rows() < B.cols()) return std::nullopt;
  const Matrix S = B.transpose() * B;
  const Eigen::SimplicialLDLT<Matrix> factors(S);
  if (factors.info() != Eigen::Success) return std::nullopt;
  Eigen::VectorXd v = AnyVector(B.cols());
  double least = 0;
  for (int step = 0; step < 3; ++step) {
    v = factors.solve(v / v.norm()).eval();
    if (!v.allFinite()) return std::nullopt;
    least = 1 / v.norm();
  }
  if (least < MinCertain) return std::nullopt;
  return v / v.norm();
}

/// Whether other roundings of the coordinates could have made a motion free.  To first order, turning the members by
/// dB changes the least singular value s = u' B v by u' dB v.
bool IsFreeWithinRounding(const CheckedTruss& truss, const Kinematics& kinematics, const std::vector<double>& motion,
                          double roundings) {
  double squares = 0;
  double reach = 0;
  for (const std::size_t m : kinematics.members) {
    const CheckedMember& member = truss.members[m];
    const double elongation = Elongation(member, motion);
    const double turn = std::hypot(motion[AlongX(member.j)] - motion[AlongX(member.i)],
                                   motion[AlongY(member.j)] - motion[AlongY(member.i)]);
    squares += elongation * elongation;
    reach += std::abs(elongation) * turn * roundings * member.doubt;
  }
  return squares <= std::max(reach, RankTolerance * RankTolerance);
}

/// A cheap proof that there is no motion, not even a hidden one.
bool IsSurelyStable(const CheckedTruss& truss, const Kinematics& kinematics) {
  if (!kinematics.loose.empty()) return false;
  if (kinematics.freedoms.empty()) return true;
  const std::optional<Eigen::VectorXd> least = LeastStretched(kinematics.elongations);
  if (!least) return false;
  std::vector<double> motion(truss.FreedomCount() + 1, 0);
  for (std::size_t column = 0; column < kinematics.freedoms.size(); ++column) {
    motion[kinematics.freedoms[column]] = (*least)(static_cast<Eigen::Index>(column));
  }
  return !IsFreeWithinRounding(truss, kinematics, motion, CautiousRoundings);
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

/// Adds a motion that is given by column of R.
void AddMotion(const CheckedTruss& truss, const Kinematics& kinematics, const Echelon& echelon,
               const std::vector<double>& x, Motions& motions) {
  motions.basis.emplace_back(truss.FreedomCount() + 1, 0.0);
  for (std::size_t column = 0; column < x.size(); ++column) {
    motions.basis.back()[kinematics.freedoms[static_cast<std::size_t>(echelon.order[column])]] = x[column];
  }
}

/// x of R' R x = v, by column of R; zero in columns that depend on others.
std::vector<double> SolveNormal(const Echelon& echelon, const std::vector<double>& v) {
  std::vector<double> left = v;
  std::vector<double> z(echelon.leading.size(), 0);
  for (std::size_t row = 0; row < z.size(); ++row) {
    RowMatrix::InnerIterator entry(echelon.R, static_cast<Eigen::Index>(row));
    while (entry.col() != echelon.leading[row]) ++entry;
    z[row] = left[static_cast<std::size_t>(entry.col())] / entry.value();
    for (++entry; entry; ++entry) left[static_cast<std::size_t>(entry.col())] -= z[row] * entry.value();
  }
  std::vector<double> x(v.size(), 0);
  for (std::size_t row = z.size(); row-- > 0;) {
    double sum = z[row];
    RowMatrix::InnerIterator entry(echelon.R, static_cast<Eigen::Index>(row));
    while (entry.col() != echelon.leading[row]) ++entry;
    const double pivot = entry.value();
    for (++entry; entry; ++entry) sum -= entry.value() * x[static_cast<std::size_t>(entry.col())];
    x[static_cast<std::size_t>(echelon.leading[row])] = sum / pivot;
  }
  return x;
}

double Product(const std::vector<double>& a, const std::vector<double>& b) {
  return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

/// Takes away what lies along vectors of length 1, and makes the length 1.
void Orthonormalise(std::vector<double>& v, const std::vector<std::vector<double>>& others) {
  for (const std::vector<double>& other : others) {
    const double share = Product(v, other);
    for (std::size_t k = 0; k < v.size(); ++k) v[k] -= share * other[k];
  }
  const double length = std::sqrt(Product(v, v));
  for (double& part : v) part /= length;
}

/// The motion of length 1, at right angles to those in `others`, that stretches the members least, by column of R.
std::vector<double> LeastStretched(const Echelon& echelon, const std::vector<std::vector<double>>& others) {
  const Eigen::VectorXd any = AnyVector(static_cast<Eigen::Index>(echelon.order.size()));
  std::vector<double> v(any.begin(), any.end());
  for (const Eigen::Index column : echelon.dependent) v[static_cast<std::size_t>(column)] = 0;
  Orthonormalise(v, others);
  for (int step = 0; step < InverseSteps; ++step) {
    v = SolveNormal(echelon, v);
    Orthonormalise(v, others);
  }
  return v;
}

/// The motions that are free as far as the coordinates show, beyond those of dependent columns.
void AddMotionsWithinRounding(const CheckedTruss& truss, const Kinematics& kinematics, const Echelon& echelon,
                              Motions& motions) {
  std::vector<std::vector<double>> found;
  while (found.size() < MaxWithinRounding && found.size() < echelon.leading.size()) {
    const std::vector<double> v = LeastStretched(echelon, found);
    AddMotion(truss, kinematics, echelon, v, motions);
    if (!IsFreeWithinRounding(truss, kinematics, motions.basis.back(), Roundings)) {
      motions.basis.pop_back();
      return;
    }
    found.push_back(v);
    ++motions.mechanisms;
    ++motions.redundants;
  }
}

/// Judges the truss as its members were given these directions; rounding of coordinates may have hidden a motion.
/// most: motions to describe.
Motions Judge(const CheckedTruss& truss, const Kinematics& kinematics, std::size_t most) {
  const Echelon echelon = kinematics.freedoms.empty() ? Echelon{} : EchelonOf(kinematics.elongations);
  const auto dependent = static_cast<int>(echelon.dependent.size());
  Motions motions;
  motions.mechanisms = dependent + static_cast<int>(kinematics.loose.size());
  motions.redundants = static_cast<int>(kinematics.elongations.rows() - kinematics.elongations.cols()) + dependent;
  for (const std::size_t freedom : kinematics.loose) {
    if (motions.basis.size() == most) break;
    motions.basis.emplace_back(truss.FreedomCount() + 1, 0.0);
    motions.basis.back()[freedom] = 1;
  }
  for (const Eigen::Index column : echelon.dependent) {
    if (motions.basis.size() == most) break;
    AddMotion(truss, kinematics, echelon, MotionOf(echelon, column), motions);
  }
  AddMotionsWithinRounding(truss, kinematics, echelon, motions);
  motions.basis.resize(std::min(motions.basis.size(), most));
  return motions;
}

} // namespace

Motions FindMotions(const CheckedTruss& truss, int mostMotions) {
  const Kinematics aligned = KinematicsOf(truss, AlignedDirections(truss));
  if (IsSurelyStable(truss, aligned)) {
    return {0, static_cast<int>(aligned.elongations.rows() - aligned.elongations.cols()), {}};
  }
  std::vector<Direction> directions;
  for (const CheckedMember& member : truss.members) directions.push_back(member.Towards());
  const auto most = static_cast<std::size_t>(mostMotions);
  Motions hidden = Judge(truss, aligned, most);
  if (hidden.mechanisms == 0) return hidden;
  // What is a mechanism in either case moves as the coordinates have it.
  Motions plain = Judge(truss, KinematicsOf(truss, directions), most);
  return hidden.mechanisms > plain.mechanisms ? hidden : plain;
}

} // namespace strutwright
