#include "AnalysisTexts.h"
#include "WorkingParts.h"
#include "modEquationCells.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <cstddef>

namespace strutwright {

namespace {

// The working of the steps that build K and P.

constexpr double Metre = 1000.0; // mm

Formula Indexed(const std::string& letter, const std::string& index) {
  return IndexOf(SymbolOf(letter), SymbolOf(index));
}

Formula Difference(Formula left, Formula right) { return RowOf({std::move(left), SignOf("\u2212"), std::move(right)}); }

/// The coordinates of both ends along one axis: those of j less those of i.
Formula EndDifference(int i, int j, NodeField field) {
  return Difference(FineNumber(NodeTable(j, field), NodeLink(j)), AsTerm(FineNumber(NodeTable(i, field), NodeLink(i))));
}

Formula Unit(const std::string& unit) { return WordsOf(" " + unit); }

/// "c = (xj - xi) / L = (1.6 - 0) / 2 = 0.8"
Formula DirectionFormula(const std::string& letter, const std::string& axis, const Formula& difference, float length,
                         float value) {
  const Formula letters = Difference(Indexed(axis, "j"), Indexed(axis, "i"));
  return RowOf({SymbolOf(letter), SignOf("="), FractionOf(letters, SymbolOf("L")), SignOf("="),
                FractionOf(difference, FineNumber(length)), SignOf("="), FineNumber(value)});
}

/// Length, direction and stiffness of a member, with its numbers put in.
Formula GeometryOf(int m) {
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  const float length = MemberLength(m);
  const MemberAxis axis = AxisOf(m);
  const Formula dx = EndDifference(i, j, NodeX);
  const Formula dy = EndDifference(i, j, NodeY);
  const auto square = [](const Formula& inside) { return PowerOf(BracketsAround(inside), NumberOf("2")); };
  const Formula lengthOf = RowOf({SymbolOf("L"), SignOf("="), RootOf(RowOf({square(dx), SignOf("+"), square(dy)})),
                                  SignOf("="), FineNumber(length), Unit("m")});
  const float E = MemberTable(m, MemberE);
  const float A = MemberTable(m, MemberA);
  const auto stiffness = static_cast<float>(static_cast<double>(E) * A / axis.length);
  const Formula stiffnessOf =
      RowOf({FractionOf(SymbolOf("EA"), SymbolOf("L")), SignOf("="),
             FractionOf(RowOf({FineNumber(E, MemberLink(m)), SignOf("\u00B7"), FineNumber(A, MemberLink(m))}),
                        FineNumber(static_cast<float>(length * Metre))),
             SignOf("="), ShownNumber(stiffness), Unit("kN/mm")});
  return StackOf({SideBySide({lengthOf, stiffnessOf}), SideBySide({DirectionFormula("c", "x", dx, length, axis.c),
                                                                   DirectionFormula("s", "y", dy, length, axis.s)})});
}

using Cells = std::vector<std::vector<Formula>>;

template <class Value>
Cells FourByFour(const Value& value) {
  Cells cells(4);
  for (int row = 1; row <= 4; ++row) {
    for (int column = 1; column <= 4; ++column) cells[static_cast<std::size_t>(row - 1)].push_back(value(row, column));
  }
  return cells;
}

/// k = EA/L and c2, cs and s2 in their places, with the signs of the member's direction.
Formula LettersOfMatrix(int m) {
  const auto square = [](const std::string& letter) { return PowerOf(SymbolOf(letter), NumberOf("2")); };
  const Formula letters = MatrixOf(FourByFour([&](int row, int column) {
    const bool rowIsX = row % 2 == 1;
    const Formula product = rowIsX != (column % 2 == 1) ? SymbolOf("cs") : square(rowIsX ? "c" : "s");
    return (row <= 2) == (column <= 2) ? product : RowOf({WordsOf("\u2212"), product});
  }));
  return RowOf({IndexOf(SymbolOf("k"), NumberOf(std::to_string(m))), SignOf("="),
                FractionOf(SymbolOf("EA"), SymbolOf("L")), letters});
}

Cells CellsOf(const MemberShare& share) {
  return FourByFour([&](int row, int column) { return ShownNumber(share.k(row, column), MemberLink(share.matrixOf)); });
}

/// The member's own matrix, in letters and in numbers.
Formula MatrixOfMember(const MemberShare& share) {
  const std::vector<int> freedoms(share.freedoms.begin() + 1, share.freedoms.end());
  return RowOf({LettersOfMatrix(share.member), SignOf("="), MatrixAt(freedoms, CellsOf(share)), Unit("kN/mm")});
}

/// K so far at the freedoms of the member, its matrix, and K with it.
void WriteSum(const MemberShare& share, const StiffnessMatrix& K, WorkingWriter& writer) {
  const std::vector<int> freedoms(share.freedoms.begin() + 1, share.freedoms.end());
  const auto at = [&](int place) { return freedoms[static_cast<std::size_t>(place - 1)]; };
  const Cells ofMember = CellsOf(share);
  const auto before = FourByFour([&](int row, int column) {
    return ShownNumber(share.before[static_cast<std::size_t>(4 * (row - 1) + column - 1)],
                       EntryLink(at(row), at(column)));
  });
  const auto after = FourByFour([&](int row, int column) {
    return InTone(FormulaTone::Strong, ShownNumber(K(at(row), at(column)), EntryLink(at(row), at(column))));
  });
  writer.Say("Each number goes where its row and column cross in K: sum so far + share = new sum, in kN/mm.");
  writer.Write(RowOf({MatrixAt(freedoms, before), SignOf("+"), MatrixOf(ofMember), SignOf("="), MatrixOf(after)}));
}

/// "20 + 5 (prestress) = 25"
Formula LoadFormula(int freedom, float total) {
  const int node = (freedom + 1) / 2;
  const bool isX = freedom % 2 == 1;
  const float load = NodeTable(node, isX ? NodeForceX : NodeForceY);
  std::vector<Formula> parts{IndexOf(SymbolOf("P"), WordsOf(FreedomLabel(freedom))), SignOf("="),
                             ShownNumber(load, NodeLink(node))};
  if (total != load) {
    parts.push_back(SignOf("+"));
    parts.push_back(AsTerm(ShownNumber(total - load)));
    parts.push_back(WordsOf(" (prestress)"));
    parts.push_back(SignOf("="));
    parts.push_back(ShownNumber(total, "P " + std::to_string(freedom)));
  }
  parts.push_back(Unit("kN"));
  return RowOf(parts);
}

} // namespace

void WriteLoads(const EquationPage& page, WorkingWriter& writer) {
  std::vector<int> loaded;
  for (int freedom = 1; page.loads && freedom <= page.viewDofCount; ++freedom) {
    const int node = (freedom + 1) / 2;
    const float load = NodeTable(node, freedom % 2 == 1 ? NodeForceX : NodeForceY);
    if (load != 0 || page.loads->at(static_cast<std::size_t>(freedom)) != 0) loaded.push_back(freedom);
  }
  if (loaded.empty()) return writer.Say("No node bears a load and no member is prestressed, so P is zero.");
  const int listed = writer.Listed(static_cast<int>(loaded.size()), "loads");
  for (int place = 0; place < listed; ++place) {
    const int freedom = loaded[static_cast<std::size_t>(place)];
    writer.Write(LoadFormula(freedom, page.loads->at(static_cast<std::size_t>(freedom))));
  }
}

void WriteMemberHeading(const EquationPage& page, WorkingWriter& writer) {
  const int m = page.lastMember;
  writer.Heading("Member " + std::to_string(m) +
                 (page.matrixOf == m ? ": node i = " + NumberText(MemberTable(m, MemberNodeI)) +
                                           ", node j = " + NumberText(MemberTable(m, MemberNodeJ))
                                     : " is ignored"));
}

void WriteMember(const EquationPage& page, WorkingWriter& writer) {
  if (page.lastFreedoms[1] == 0 || page.viewStiffness->Shares().empty()) return;
  const MemberShare& share = page.viewStiffness->Shares().back();
  if (page.matrixOf == page.lastMember) {
    writer.Write(GeometryOf(page.lastMember));
    writer.Write(MatrixOfMember(share));
  }
  WriteSum(share, page.viewStiffness->Values(), writer);
}

void WriteWholeMatrix(const EquationPage& page, WorkingWriter& writer) {
  if (page.viewDofCount > 2 * MaxWorkedNodes) {
    writer.Say("K has " + std::to_string(page.viewDofCount) + " rows: it is not written out here, only in the grid.");
    return;
  }
  std::vector<int> freedoms;
  for (int freedom = 1; freedom <= page.viewDofCount; ++freedom) freedoms.push_back(freedom);
  Cells cells;
  for (const int row : freedoms) {
    cells.emplace_back();
    for (const int column : freedoms) {
      cells.back().push_back(ShownNumber(page.viewStiffness->Values()(row, column), EntryLink(row, column)));
    }
  }
  writer.Write(RowOf({SymbolOf("K"), SignOf("="), MatrixAt(freedoms, cells), Unit("kN/mm")}));
}

} // namespace strutwright
