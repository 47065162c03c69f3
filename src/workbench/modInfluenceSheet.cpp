#include "modInfluenceSheet.h"

#include "PlaneGeometry.h"
#include "PreciseText.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modPath.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace strutwright {

namespace {

constexpr int DigitsToRead = 6;

std::string ReadText(double value) { return PreciseText(value, DigitsToRead); }

std::string ExtremeCaption(const std::string& name, const TrainPosition& extreme, const std::string& unit) {
  return name + " " + ReadText(extreme.value) + " " + unit + ": first axle at x = " + ReadText(extreme.position) +
         " m, going " + HeadingName(extreme.heading);
}

/// The train where it causes the larger of its extremes.
std::vector<PathLoad> DecisiveLoads(const Train& train, const TrainEnvelope& envelope) {
  const bool up = envelope.maximum.value >= -envelope.minimum.value;
  const TrainPosition& extreme = up ? envelope.maximum : envelope.minimum;
  const double behind = extreme.heading == Heading::Right ? -1 : 1;
  std::vector<PathLoad> loads;
  for (const Axle& axle : train) loads.push_back({extreme.position + behind * axle.distance, axle.force});
  return loads;
}

bool IsBlank(const std::string& text) { return TrimBlanks(text).empty(); }

PixelPoint PlaceOf(int node) { return {NodeTable(node, NodeX), NodeTable(node, NodeY)}; }

/// The first of the entries 1..count whose distance is the least below reach; 0 where there is none.
template <class Distance>
int NearestOf(int count, double reach, Distance distance) {
  int nearest = 0;
  for (int each = 1; each <= count; ++each) {
    const double d = distance(each);
    if (!(d < reach)) continue;
    reach = d;
    nearest = each;
  }
  return nearest;
}

} // namespace

std::string HeadingName(Heading heading) { return heading == Heading::Right ? "right" : "left"; }

InfluenceShape ShapeOfInfluence(const Quantity& quantity, const InfluenceLine& line, const Train& train,
                                const std::optional<TrainEnvelope>& envelope) {
  const std::string unit = QuantityUnit(quantity);
  InfluenceShape shape{line.nodes, line.values, 0, 0, {}, {}, {}};
  (quantity.kind == QuantityKind::MemberForce ? shape.member : shape.node) = quantity.number;
  shape.captions.push_back(QuantityName(quantity) + " in " + unit + " for 1 kN downward");
  if (!envelope) return shape;
  shape.captions.push_back(ExtremeCaption("Minimum", envelope->minimum, unit));
  shape.captions.push_back(ExtremeCaption("Maximum", envelope->maximum, unit));
  shape.loads = DecisiveLoads(train, *envelope);
  return shape;
}

void InfluenceSheet::Ask(const InfluenceQuestion& question) {
  Line = {};
  Axles.clear();
  Envelope.reset();
  Of = question.quantity;
  if (!Lines || !Solved.IsCurrent()) {
    Lines.emplace();
    Solved = ModelAsEntered::Now();
  }
  Reason = FaultOf(question);
  if (Reason.empty() && !Axles.empty()) Envelope = EnvelopeOf(Axles, Line);
}

/// Without a truss that has lines at all nothing else is worth saying.
std::string InfluenceSheet::FaultOf(const InfluenceQuestion& question) {
  if (!Lines->Fault().empty()) return Lines->Fault();
  PathReading path = ReadPath(question.path);
  if (!path.fault.empty()) return path.fault;
  std::string fault = QuantityFault(question.quantity);
  if (!fault.empty()) return fault;
  TrainReading train = IsBlank(question.train) ? TrainReading{} : ReadTrain(question.train);
  if (!train.fault.empty()) return train.fault;
  InfluenceLine line = Lines->LineOf(question.quantity, path.nodes);
  if (!line.IsSure()) {
    return "Rounding leaves no sure influence line of so soft a truss: check its coordinates, E and A";
  }
  Line = std::move(line);
  Axles = std::move(train.train);
  return "";
}

InfluenceShape InfluenceSheet::Shape(std::optional<double> at) const {
  if (!Reason.empty()) return {};
  InfluenceShape shape = ShapeOfInfluence(Of, Line, Axles, Envelope);
  if (!at || !IsOverPath(*at)) return shape;
  shape.loads = {{*at, 1}};
  shape.mark = {*at, ValueAt(*at)};
  return shape;
}

bool InfluenceSheet::IsOverPath(double x) const {
  if (Line.x.empty()) return false;
  const auto [left, right] = std::minmax(Line.x.front(), Line.x.back());
  return x >= left && x <= right;
}

double InfluenceSheet::ValueAt(double x) const { return ValueUnder({{1, 0}}, Line, Heading::Right, x); }

std::string InfluenceSheet::ValueText(double x) const {
  if (!Reason.empty() || !IsOverPath(x)) return "";
  return "x = " + ReadText(x) + " m: " + ReadText(ValueAt(x)) + " " + QuantityUnit(Of) + " per kN";
}

double InfluenceSheet::WalkPosition(int step) const {
  if (Line.x.empty()) return 0;
  const int round = step % (2 * StepsOfAWalk);
  const double share = static_cast<double>(round <= StepsOfAWalk ? round : 2 * StepsOfAWalk - round) / StepsOfAWalk;
  return (1 - share) * Line.x.front() + share * Line.x.back(); // exact at both ends
}

double InfluenceSheet::NextNode(double x, int direction) const {
  std::vector<double> places = Line.x;
  if (places.empty()) return x;
  std::sort(places.begin(), places.end());
  if (direction > 0) {
    const auto next = std::upper_bound(places.begin(), places.end(), x);
    return next == places.end() ? places.back() : *next;
  }
  const auto next = std::lower_bound(places.begin(), places.end(), x);
  return next == places.begin() ? places.front() : *(next - 1);
}

InfluenceQuestion ProposedQuestion(int member) {
  const bool there = member >= 1 && member <= MemberCount;
  return {PathText(ProposePath()), {QuantityKind::MemberForce, there ? member : 1, true}, ""};
}

int MemberWithin(double x, double y, double reach) {
  return NearestOf(MemberCount, reach, [x, y](int m) {
    const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
    const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
    const bool drawn = std::min(i, j) >= 1 && std::max(i, j) <= NodeCount;
    return drawn ? DistanceToLine({x, y}, PlaceOf(i), PlaceOf(j)) : HUGE_VAL;
  });
}

int NodeWithin(double x, double y, double reach) {
  return NearestOf(NodeCount, reach, [x, y](int n) { return LengthOf(PixelPoint{x, y} - PlaceOf(n)); });
}

} // namespace strutwright
