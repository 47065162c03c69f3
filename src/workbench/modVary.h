#pragma once

#include "CellEdits.h"

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

// One quantity of the model is varied, and a result is looked at as a function of it.

enum class VariedKind { Span, Height, NodeX, NodeY, LoadX, LoadY, MemberE, MemberA };

/// Whether every node moves in proportion, so that the value must stay above zero.
inline bool IsStretched(VariedKind kind) { return kind == VariedKind::Span || kind == VariedKind::Height; }

/// What is varied: for a node its number, for E or A a list of members such as "1-3,7".
struct Varied {
  VariedKind kind = VariedKind::Height;
  std::string numbers;

  bool operator==(const Varied&) const = default;
};

/// The unit of its value: "m", "kN", "kN/mm2" or "mm2".
std::string UnitOf(VariedKind kind);

/// Why it can't be varied, in one sentence without a full stop; empty where it can.
std::string VariedFault(const Varied& varied);

/// What it is in the tables: the span and the height of the nodes, or the value of the first member of a list.
double ValueOf(const Varied& varied);

/// Writes the texts that give it a value.  A span or a height moves every node in proportion, from the left or from
/// below.
void PutValue(const Varied& varied, double value, CellEdits& edits);

enum class ResultKind { MemberForce, DisplacementX, DisplacementY, ReactionX, ReactionY };

struct ChosenResult {
  ResultKind kind = ResultKind::MemberForce;
  int number = 1; ///< of the member or the node

  bool operator==(const ChosenResult&) const = default;
};

std::string ResultFault(const ChosenResult& result);

/// "Force of member 3 (kN)", "Displacement of node 2 in y (mm)".
std::string ResultName(const ChosenResult& result);

/// "Height (m)", "Load in y at node 4 (kN)", "A of members 1-3 (mm2)".
std::string VariedName(const Varied& varied);

/// A point of the plot; without a result where there is none, as for a mechanism.
struct VaryPoint {
  double value = 0;
  std::optional<double> result;

  bool operator==(const VaryPoint&) const = default;
};

/// The result over a range, by a full analysis at each of so many values.  The model and its results are as before
/// afterwards.  Varied and result must have no fault.  The user can cancel it: then it throws WorkCancelled.
std::vector<VaryPoint> PlotOf(const Varied& varied, const ChosenResult& result, double from, double to, int points);

/// The result as it is now; nothing without results.
std::optional<double> ResultNow(const ChosenResult& result);

/// The plot as comma-separated values: a line of names, then value and result of each point.
std::string PlotCsv(const Varied& varied, const ChosenResult& result, const std::vector<VaryPoint>& points);

} // namespace strutwright
