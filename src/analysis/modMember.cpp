#include "modMember.h"

#include "AnalysisState.h"
#include "modModelStore.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

constexpr double Thousand = 1000.0;     // m to mm, kN/mm2 to N/mm2
constexpr float ZeroBarLimit = 0.0001F; // kN

struct MemberEnds {
  int i = 0;
  int j = 0;
};

MemberEnds EndsOf(int m) {
  return {RoundNodeNumber(MemberTable(m, MemberNodeI)), RoundNodeNumber(MemberTable(m, MemberNodeJ))};
}

/// From node i to node j, in m.
struct MemberSpan {
  double dx = 0;
  double dy = 0;

  float Length() const { return static_cast<float>(std::sqrt(dy * dy + dx * dx)); }
  float Cos(float length) const { return static_cast<float>(dx / static_cast<double>(length)); }
  float Sin(float length) const { return static_cast<float>(dy / static_cast<double>(length)); }
};

MemberSpan SpanOf(int m) {
  const MemberEnds ends = EndsOf(m);
  const auto difference = [&ends](NodeField coordinate) {
    return static_cast<double>(NodeTable(ends.j, coordinate)) - static_cast<double>(NodeTable(ends.i, coordinate));
  };
  return {difference(NodeX), difference(NodeY)};
}

std::vector<MemberFault> FaultsOf(int m, float length) {
  std::vector<MemberFault> faults;
  if (MemberTable(m, MemberE) < 0) faults.push_back(MemberFault::EBelowZero);
  if (MemberTable(m, MemberA) < 0) faults.push_back(MemberFault::ABelowZero);
  if (!(length > 0)) faults.push_back(MemberFault::NoLength);
  return faults;
}

// k = EA/L | cc cs -cc -cs |   c, s: direction of i to j.
//          |    ss -cs -ss |   Checked: rows sum to zero; horizontal, vertical and 3-4-5 bars.
//          |        cc  cs |
//          | sym.       ss |
void FillStiffness(MemberMatrix& k, double E, double A, double length, double c, double s) {
  const double axial = E * A / length;
  const auto xx = static_cast<float>(c * c * axial);
  const auto xy = static_cast<float>(E * A * c * s / length);
  const auto yy = static_cast<float>(s * s * axial);
  const std::array<std::array<float, 4>, 4> entries{{
      {xx, xy, -xx, -xy},
      {xy, yy, -xy, -yy},
      {-xx, -xy, xx, xy},
      {-xy, -yy, xy, yy},
  }};
  for (int row = 1; row <= 4; ++row) {
    for (int column = 1; column <= 4; ++column) {
      k(row, column) = entries[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
    }
  }
}

/// Displacement of node j less that of node i, each named by its freedom, in mm.
float EndMovement(const std::vector<float>& D, std::size_t freedomAtJ, std::size_t freedomAtI) {
  return static_cast<float>(static_cast<double>(D.at(freedomAtJ)) - static_cast<double>(D.at(freedomAtI)));
}

MemberAxis AxisAlong(const MemberSpan& span, float length) {
  return {static_cast<float>(length * Thousand), span.Cos(length), span.Sin(length)};
}

} // namespace

float MemberLength(int m) { return SpanOf(m).Length(); }

float MemberCos(int m) { return m > 0 ? SpanOf(m).Cos(MemberLength(m)) : 0.0F; }

float MemberSin(int m) { return m > 0 ? SpanOf(m).Sin(MemberLength(m)) : 0.0F; }

std::vector<MemberFault> MemberStiffness(MemberMatrix& k, int m) {
  const MemberSpan span = SpanOf(m);
  const float length = span.Length();
  std::vector<MemberFault> faults = FaultsOf(m, length);
  if (!faults.empty()) return faults;
  const MemberAxis axis = AxisAlong(span, length);
  MemberTable(m, MemberFieldLength) = axis.length;
  MemberTable(m, MemberFieldCos) = axis.c;
  MemberTable(m, MemberFieldSin) = axis.s;
  FillStiffness(k, MemberTable(m, MemberE), MemberTable(m, MemberA), axis.length, axis.c, axis.s);
  return faults;
}

MemberAxis AxisOf(int m) {
  const MemberSpan span = SpanOf(m);
  const float length = span.Length();
  return FaultsOf(m, length).empty() ? AxisAlong(span, length) : MemberAxis{};
}

MemberAxis StoredAxis(int m) {
  return {MemberTable(m, MemberFieldLength), MemberTable(m, MemberFieldCos), MemberTable(m, MemberFieldSin)};
}

std::optional<MemberFreedoms> FreedomsOf(int m) {
  const MemberEnds ends = EndsOf(m);
  if (ends.i <= 0 || ends.j <= 0) return std::nullopt;
  return {{0, 2 * ends.i - 1, 2 * ends.i, 2 * ends.j - 1, 2 * ends.j}};
}

void AddAtFreedoms(const MemberFreedoms& freedoms, const MemberMatrix& k, StiffnessMatrix& K) {
  for (int p = 1; p <= 4; ++p) {
    for (int q = 1; q <= 4; ++q) {
      K.Add(freedoms[static_cast<std::size_t>(p)], freedoms[static_cast<std::size_t>(q)], k(p, q));
    }
  }
}

bool AddMemberToGlobal(int m, const MemberMatrix& k, StiffnessMatrix& K) {
  const std::optional<MemberFreedoms> freedoms = FreedomsOf(m);
  if (freedoms) AddAtFreedoms(*freedoms, k, K);
  return freedoms.has_value();
}

MemberForceTerms ForceTermsOf(int m, const MemberAxis& axis, const std::vector<float>& D) {
  const MemberEnds ends = EndsOf(m);
  MemberForceTerms terms;
  if (ends.i > 0 && ends.j > 0) {
    terms.du = EndMovement(D, XFreedom(ends.j), XFreedom(ends.i));
    terms.dv = EndMovement(D, YFreedom(ends.j), YFreedom(ends.i));
  }
  const double E = MemberTable(m, MemberE);
  const double A = MemberTable(m, MemberA);
  const double length = axis.length;
  if (E <= 0 || A <= 0 || length <= 0) return terms;
  const double c = axis.c;
  const double s = axis.s;
  const double PS = MemberTable(m, MemberPS);
  // F = (c du + s dv) EA/L + PS.   Checked: rigid motion gives PS; swapping the ends changes nothing.
  terms.force = static_cast<float>((c * terms.du + s * terms.dv) * E * A / length + PS);
  return terms;
}

void ComputeMemberForce(int m) {
  MemberTable(m, MemberFieldForce) = ForceTermsOf(m, StoredAxis(m), Displacements).force;
}

float MemberForce(int m) { return MemberTable(m, MemberFieldForce); }

std::string StateOfForce(float force) {
  if (force > ZeroBarLimit) return "T";
  if (force < -ZeroBarLimit) return "C";
  if (-ZeroBarLimit < force && force < ZeroBarLimit) return "Zero Bar";
  return "";
}

std::string MemberState(int m) { return StateOfForce(MemberForce(m)); }

float MemberStress(int m) {
  const double A = MemberTable(m, MemberA);
  if (A <= 0) return 0.0F;
  return static_cast<float>(Thousand * MemberForce(m) / A);
}

std::optional<StretchFault> StretchFaultOf(int m) {
  const bool hasE = MemberTable(m, MemberE) > 0;
  const bool hasA = MemberTable(m, MemberA) > 0;
  if (hasE && hasA) return std::nullopt;
  if (hasE) return StretchFault::A;
  return hasA ? StretchFault::E : StretchFault::EAndA;
}

float MemberStretch(int m) {
  if (StretchFaultOf(m)) return 0.0F;
  const double EA = static_cast<double>(MemberTable(m, MemberE)) * MemberTable(m, MemberA);
  return static_cast<float>(static_cast<double>(MemberForce(m)) * MemberTable(m, MemberFieldLength) / EA);
}

} // namespace strutwright
