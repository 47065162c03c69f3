#pragma once

#include "ModelAsEntered.h"
#include "modInfluence.h"
#include "modInfluenceDrawing.h"
#include "modTrain.h"

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// What is drawn of an influence line: the line with its captions and, under a train, the train where it causes the
/// larger of its extremes.
/// train, envelope: empty without a train.
InfluenceShape ShapeOfInfluence(const Quantity& quantity, const InfluenceLine& line, const Train& train,
                                const std::optional<TrainEnvelope>& envelope);

/// "right" or "left".
std::string HeadingName(Heading heading);

/// What an influence line is asked of, as the user types and chooses it.
struct InfluenceQuestion {
  std::string path;
  Quantity quantity;
  std::string train; ///< axles or the key of a teaching train; blank for none

  bool operator==(const InfluenceQuestion&) const = default;
};

/// The influence line that a window shows, of the model in the tables.
class InfluenceSheet {
 public:
  /// Answers a question.  The equations are factorised again only where the model has changed.
  void Ask(const InfluenceQuestion& question);

  /// Whether the answer is about the model in the tables.
  bool IsCurrent() const { return Solved.IsCurrent(); }

  /// Why there is no line, in one sentence without a full stop; empty where there is one.
  const std::string& Fault() const { return Reason; }

  /// The line as it is drawn, empty where there is none.
  /// at: x of a load of 1 kN that stands in the place of the train; the ordinate under it is marked.
  InfluenceShape Shape(std::optional<double> at) const;

  /// "x = 3 m: -0.25 kN per kN"; empty where the path has no such place.
  std::string ValueText(double x) const;

  /// The place of a load that walks to and fro over the path, in so many steps a way.
  double WalkPosition(int step) const;
  static constexpr int StepsOfAWalk = 60;

  /// The node of the path next to a place, in the given direction of x: -1 or 1; the nearest end beyond the last one.
  double NextNode(double x, int direction) const;

 private:
  std::string FaultOf(const InfluenceQuestion& question);
  bool IsOverPath(double x) const;
  double ValueAt(double x) const;

  std::string Reason{"Nothing has been asked yet"};
  ModelAsEntered Solved;               ///< what Lines were made of
  std::optional<InfluenceLines> Lines; ///< empty before the first question
  Quantity Of;
  InfluenceLine Line;
  Train Axles;
  std::optional<TrainEnvelope> Envelope;
};

/// A question that has an answer in most trusses: the path that is most likely loaded, and the force of this member, or
/// of the first where there is none such.
InfluenceQuestion ProposedQuestion(int member);

/// The member nearest to a world point within so many metres; 0 where there is none.
int MemberWithin(double x, double y, double reach);

/// The node nearest to a world point likewise.
int NodeWithin(double x, double y, double reach);

} // namespace strutwright
