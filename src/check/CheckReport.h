#pragma once

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// What the last analysis came to.
enum class AnalysisOutcome {
  None,     ///< there was none, or it was given up before the equations were solved
  Done,     ///< it has results
  Unstable, ///< it was given up as unstable
};

/// How serious a report is, for the colour of the status panel; the words say the same.
enum class CheckLevel { None, Good, Doubtful, Bad };

/// One support or one member that would stop a motion, or the rigidity of members that have none.
struct Cure {
  int node = 0;        ///< node to support, or the member's first node; 0 for rigidity
  int otherNode = 0;   ///< the member's second node; 0 for a support
  int supportCode = 0; ///< code that the node should have then; 0 for a member
  std::string text;    ///< "Support node 3 in x (support code 2)", "Add a member from node 1 to node 3"

  bool IsMember() const { return otherNode != 0; }
  bool IsRigidity() const { return node == 0; }
};

/// One way in which the truss can move without stretching a member.
struct Mechanism {
  std::vector<double> motion; ///< (0..2 NodeCount), freedom 2n-1 is x and 2n is y of node n; the largest entry is 1
  std::vector<int> nodes;     ///< the nodes that move, in ascending order
  std::string sentence;    ///< "Node 2 can move up while node 3 moves to the left; no member or support resists this"
  std::vector<Cure> cures; ///< at most five, members first; each alone takes this motion away.  Where rigidity would,
                           ///< nothing else is proposed
};

/// Whether the truss holds, by the rank of its equilibrium matrix.  No factor on E, A or all coordinates changes it.
struct StabilityReport {
  int mechanismCount = 0;            ///< independent motions
  int indeterminacy = 0;             ///< independent forces that statics leaves open
  std::vector<Mechanism> mechanisms; ///< the first MaxMechanisms of them, in the order of their nodes

  bool Stable() const { return mechanismCount == 0; }
};

/// How the results of the analysis compare with a solution refined beyond double precision.  Relative differences are
/// to the largest value of their kind.
struct AccuracyReport {
  int digits = 0;                    ///< correct ones of every result, 0 to 7; cautious
  double displacementDifference = 0; ///< largest relative one
  double forceDifference = 0;        ///< of member forces
  double reactionDifference = 0;
  int worstNode = 0;         ///< displaced with the largest difference; 0 where all agree
  int worstMember = 0;       ///< force with the largest difference; 0 where all agree
  double directionError = 0; ///< what rounding of the coordinates does to forces, relative; it limits the digits
};

/// Whether the results balance, in kN, kN m and J.
struct BalanceReport {
  double nodeResidual = 0;   ///< largest resultant that is left at a node, kN
  int nodeOfResidual = 0;    ///< that node; 0 where every node balances
  double wholeResidual = 0;  ///< resultant of all loads and reactions, kN
  double momentResidual = 0; ///< their moment about the middle of the truss, kN m
  double work = 0;           ///< half of loads and prestress times displacements, J
  double storedEnergy = 0;   ///< half of member forces beyond prestress times elongations, J
};

/// A member without force.
struct ZeroBar {
  int member = 0;
  std::string reason; ///< the rule that shows it, or that only the solution does
};

enum class FindingKind {
  RowGap,
  CoincidentNodes,
  MemberOnMember,
  CrossingMembers,
  NodeOnMember,
  FreeNode,
  BadNodeNumber,
  NoLength,
  BadModulus,
  BadArea,
  UnusualModulus,
  UnusualArea,
  UnusualLength,
};

/// Something odd about the model itself.
struct Finding {
  FindingKind kind = FindingKind::FreeNode;
  std::string text;         ///< one sentence, without a full stop unless the status bar says the same
  std::vector<int> nodes;   ///< to select, ascending
  std::vector<int> members; ///< to select, ascending
};

/// Everything that the check has to say about the model in the tables and the last analysis of it.
struct CheckReport {
  AnalysisOutcome outcome = AnalysisOutcome::None;
  StabilityReport stability;
  std::vector<int> withoutRigidity;       ///< members with an E or an A that is not above zero
  std::optional<AccuracyReport> accuracy; ///< of a stable truss that has results
  std::optional<BalanceReport> balance;   ///< of results, also of a mechanism
  std::vector<ZeroBar> zeroBars;          ///< of a stable truss, in the order of members
  std::vector<Finding> findings;
  CheckLevel level = CheckLevel::None;
  std::string status;  ///< for the status panel; empty without an analysis
  std::string verdict; ///< in plain words: one sentence, and before it one on members without rigidity
};

} // namespace strutwright
