#include "modMember.h"

#include "AnalysisState.h"
#include "Platform.h"
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

void ReportIgnored(int m, const std::string& what) {
  ShowMessage(MessageIcon::Critical, "Error: member index " + std::to_string(m) + " " + what + "\nMember ignored");
}

/// Whether the number can be a member's; reports it where not.
bool CanBeMember(int m) {
  if (m > 0) return true;
  ShowMessage(MessageIcon::Critical, "Error: member index of " + std::to_string(m) + " called");
  return false;
}

/// Reports everything that makes the member invalid, in the order E, A, length.
bool CheckMember(int m, float length) {
  bool valid = true;
  if (MemberTable(m, MemberE) < 0) {
    ReportIgnored(m, "E-value");
    valid = false;
  }
  if (MemberTable(m, MemberA) < 0) {
    ReportIgnored(m, "A-value");
    valid = false;
  }
  if (!(length > 0)) {
    ReportIgnored(m, "has no length");
    valid = false;
  }
  return valid;
}

// k = EA/L | cc cs -cc -cs |   c, s: direction of i to j.
//          |    ss -cs -ss |   Checked: rows sum to zero; horizontal, vertical and 3-4-5 bars.
//          |        cc  cs |
//          | sym.       ss |
void FillStiffness(Matrix& k, double E, double A, double length, double c, double s) {
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

int Freedom(const std::array<int, 5>& freedoms, int p) { return freedoms[static_cast<std::size_t>(p)]; }

void Accumulate(float& entry, float addend) {
  entry = static_cast<float>(static_cast<double>(entry) + static_cast<double>(addend));
}

/// Adds what k holds from (p, q) on for two freedoms of one node by two of one node.
void AddNodeBlock(const Matrix& k, int p, int q, float* block) {
  for (int r = 0; r < 2; ++r) {
    for (int c = 0; c < 2; ++c) Accumulate(TileRow(block, r)[c], k(p + r, q + c));
  }
}

/// Displacement of node j less that of node i, each named by its freedom, in mm.
float EndMovement(std::size_t freedomAtJ, std::size_t freedomAtI) {
  return static_cast<float>(static_cast<double>(Displacements.at(freedomAtJ)) -
                            static_cast<double>(Displacements.at(freedomAtI)));
}

} // namespace

float MemberLength(int m) { return SpanOf(m).Length(); }

float MemberCos(int m) { return CanBeMember(m) ? SpanOf(m).Cos(MemberLength(m)) : 0.0F; }

float MemberSin(int m) { return CanBeMember(m) ? SpanOf(m).Sin(MemberLength(m)) : 0.0F; }

bool MemberStiffness(Matrix& k, int m) {
  const MemberSpan span = SpanOf(m);
  const float length = span.Length();
  if (!CheckMember(m, length)) return false;
  const float c = span.Cos(length);
  const float s = span.Sin(length);
  const auto lengthInMm = static_cast<float>(length * Thousand);
  MemberTable(m, MemberFieldLength) = lengthInMm;
  MemberTable(m, MemberFieldCos) = c;
  MemberTable(m, MemberFieldSin) = s;
  FillStiffness(k, MemberTable(m, MemberE), MemberTable(m, MemberA), lengthInMm, c, s);
  return true;
}

std::optional<std::array<int, 5>> MemberFreedoms(int m) {
  const MemberEnds ends = EndsOf(m);
  if (ends.i <= 0 || ends.j <= 0) {
    ReportIgnored(m, "node numbers");
    return std::nullopt;
  }
  return {{0, 2 * ends.i - 1, 2 * ends.i, 2 * ends.j - 1, 2 * ends.j}};
}

void AddMemberToGlobal(int m, const Matrix& k, Matrix& K) {
  const std::optional<std::array<int, 5>> freedoms = MemberFreedoms(m);
  if (!freedoms) return;
  for (int p = 1; p <= 4; ++p) {
    for (int q = 1; q <= 4; ++q) Accumulate(K(Freedom(*freedoms, p), Freedom(*freedoms, q)), k(p, q));
  }
}

void AddMemberToGlobal(int m, const Matrix& k, TiledMatrix& K) {
  const std::optional<std::array<int, 5>> freedoms = MemberFreedoms(m);
  if (!freedoms) return;
  // The two freedoms of a node are never in different tiles.
  for (const int p : {1, 3}) {
    for (const int q : {1, 3}) AddNodeBlock(k, p, q, &K(Freedom(*freedoms, p), Freedom(*freedoms, q)));
  }
}

void ComputeMemberForce(int m) {
  const MemberEnds ends = EndsOf(m);
  float du = 0.0F;
  float dv = 0.0F;
  if (ends.i > 0 && ends.j > 0) {
    du = EndMovement(XFreedom(ends.j), XFreedom(ends.i));
    dv = EndMovement(YFreedom(ends.j), YFreedom(ends.i));
  }
  const double E = MemberTable(m, MemberE);
  const double A = MemberTable(m, MemberA);
  const double length = MemberTable(m, MemberFieldLength);
  if (E <= 0 || A <= 0 || length <= 0) {
    MemberTable(m, MemberFieldForce) = 0.0F;
    return;
  }
  const double c = MemberTable(m, MemberFieldCos);
  const double s = MemberTable(m, MemberFieldSin);
  const double PS = MemberTable(m, MemberPS);
  // F = (c du + s dv) EA/L + PS.   Checked: rigid motion gives PS; swapping the ends changes nothing.
  MemberTable(m, MemberFieldForce) = static_cast<float>((c * du + s * dv) * E * A / length + PS);
}

float MemberForce(int m) { return MemberTable(m, MemberFieldForce); }

std::string MemberState(int m) {
  const float force = MemberForce(m);
  if (force > ZeroBarLimit) return "T";
  if (force < -ZeroBarLimit) return "C";
  if (-ZeroBarLimit < force && force < ZeroBarLimit) return "Zero Bar";
  return "";
}

float MemberStress(int m) {
  const double A = MemberTable(m, MemberA);
  if (A <= 0) return 0.0F;
  return static_cast<float>(Thousand * MemberForce(m) / A);
}

bool MemberCanStretch(int m) { return MemberTable(m, MemberE) > 0 && MemberTable(m, MemberA) > 0; }

float MemberStretch(int m) {
  const double E = MemberTable(m, MemberE);
  const double A = MemberTable(m, MemberA);
  if (MemberCanStretch(m)) {
    return static_cast<float>(static_cast<double>(MemberForce(m)) * MemberTable(m, MemberFieldLength) / (E * A));
  }
  const char* reason = "E is not valid";
  if (A <= 0) reason = E <= 0 ? "E and A are not valid" : "area is not valid";
  ShowMessage(MessageIcon::Information, "Ignoring member " + std::to_string(m) + " as " + reason);
  return 0.0F;
}

} // namespace strutwright
