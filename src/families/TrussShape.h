#pragma once

#include <vector>

namespace strutwright {

/// Which of the three areas a member gets.
enum class MemberKind { Chord, Vertical, Diagonal };

struct ShapeNode {
  double x = 0; ///< m
  double y = 0; ///< m, upward positive
  int support = 0;
  bool loaded = false; ///< on the loaded chord
};

struct ShapeMember {
  int i = 0; ///< index into the nodes, from 0
  int j = 0;
  MemberKind kind = MemberKind::Chord;
};

/// A truss without its loads' size and its members' properties.  Nodes are known by their index, from 0.
struct TrussShape {
  std::vector<ShapeNode> nodes;
  std::vector<ShapeMember> members;

  /// Adds a node and gives its index.
  int AddNode(double x, double y);

  /// Adds a node halfway between two.
  int AddNodeBetween(int a, int b);

  void AddMember(int i, int j, MemberKind kind) { members.push_back({i, j, kind}); }

  /// Joins each node of a line to the next.
  void AddChord(const std::vector<int>& line);

  void MarkLoaded(const std::vector<int>& line);
};

/// The same truss with its nodes in the order of their x, or of their y where it stands upright, so that members join
/// nodes with close numbers and the equations keep a narrow band.
TrussShape NumberedAlong(const TrussShape& shape, bool upright);

} // namespace strutwright
