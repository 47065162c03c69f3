#pragma once

#include "HandTelling.h"
#include "ModelAsEntered.h"
#include "modForceDiagram.h"
#include "modHandSolution.h"
#include "modSections.h"
#include "modZeroMembers.h"

#include <string>
#include <vector>

namespace strutwright {

/// The lesson on one truss: what each page tells at each of its steps.
class HandLesson {
 public:
  /// Solves the truss of the model in the tables.
  void Read();

  /// Whether the tables hold the results of an analysis.
  static bool HasComputed();

  /// Whether the lesson is about the model in the tables.
  bool IsCurrent() const { return Solved.IsCurrent(); }

  const HandTruss& Truss() const { return TheTruss; }
  const HandSolution& Solution() const { return TheSolution; }
  const std::vector<ZeroMember>& Zeros() const { return TheZeros; }
  /// Members without force that no joint shows, only the numbers.
  const std::vector<int>& ZerosByNumbers() const { return ZeroOnlyByNumbers; }
  const ForceDiagram& Diagram() const { return TheDiagram; }

  /// What equilibrium can do with this truss, and what is left out of it or changes nothing.
  std::vector<std::string> Verdict() const;

  /// Why there is nothing to tell by hand: no node, or a mechanism.  Empty where there is.
  std::string WhyNothing() const;

  /// The last step of a page; the first is 0.
  int LastStep(HandTopic topic) const;

  /// step: 0..LastStep.  Of the page of sections it tells how to draw one.
  HandTelling Tell(HandTopic topic, int step) const;

  /// A joint with every force that is known, and whether they balance.
  /// computed: with the forces of the analysis, which must have results.
  HandTelling TellJoint(int node, bool computed) const;

  /// A step of the page of joints with the forces of the analysis, which must have results: its joint, or where it
  /// takes none all forces of the truss beside those by hand.
  HandTelling TellComputed(int step) const;

  /// The section along a stroke.  nearness: how close a node counts as hit, in m.
  HandTelling TellSection(const SectionStroke& stroke, double nearness = 0) const;

  /// A stroke that cuts the truss near its middle, upright where that goes; one of no length where none does.
  SectionStroke ProposedStroke() const;

  /// The step of the page of joints that takes a joint, and the joint that a step takes; 0 where there is none.
  int StepOfJoint(int node) const;
  int JointOfStep(int step) const;

  /// What a line of the force diagram is; its key is its index from 1.  Empty for any other key.
  std::string LineText(int key) const;

 private:
  HandTelling Nothing() const;
  HandTelling TellReactions(int step) const;
  HandTelling TellZeros(int step) const;
  HandTelling TellJoints(int step) const;
  HandTelling TellStart() const;
  HandTelling TellEnd() const;
  HandTelling TellHowToCut() const;
  HandTelling TellDiagram(int step) const;
  HandForces KnownBefore(int step) const;

  ModelAsEntered Solved;
  HandTruss TheTruss;
  HandSolution TheSolution;
  std::vector<ZeroMember> TheZeros;
  std::vector<int> ZeroOnlyByNumbers;
  ForceDiagram TheDiagram;
};

} // namespace strutwright
