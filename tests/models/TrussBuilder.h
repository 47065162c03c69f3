#pragma once

#include "LargeModels.h"
#include "ModelBuilder.h"

#include <cmath>
#include <cstddef>
#include <random>

namespace strutwright {

/// Puts a truss together, node by node, a little out of their places and with loads; nodes are named by their numbers,
/// from 1.
class TrussBuilder {
 public:
  /// loadInX: kN that a node's load in x reaches either way; without it nothing is drawn for it.
  explicit TrussBuilder(std::mt19937& generator, double loadInX = 0) : Random(generator), LoadInX(loadInX) {}

  /// Between -1 and 1.
  double Chance() { return 2.0 * Below(10001, Random) / 10000 - 1; }

  /// Between 1 and limit.
  int Any(int limit) { return 1 + Below(limit, Random); }

  int Node(double x, double y, double disorder = 0.05) {
    Model.nodes.push_back({static_cast<float>(x + disorder * Chance()), static_cast<float>(y + disorder * Chance()),
                           LoadInX > 0 ? static_cast<float>(LoadInX * Chance()) : 0,
                           static_cast<float>(-10 + 5 * Chance())});
    return static_cast<int>(Model.nodes.size());
  }

  void Join(int a, int b) {
    Model.members.push_back(
        {static_cast<float>(a), static_cast<float>(b), 200, static_cast<float>(1500 + 500 * Chance())});
  }

  /// A node held by members to two others.
  int Hang(double x, double y, int a, int b) {
    const int node = Node(x, y);
    Join(a, node);
    Join(b, node);
    return node;
  }

  /// A node held by two others, near the middle between them; 0 where the sine of the angle in which they hold it is
  /// not above a limit.
  int HangBetween(int a, int b, double limit) {
    const double x = (X(a) + X(b)) / 2 + 5 * Chance();
    const double y = (Y(a) + Y(b)) / 2 + 5 * Chance();
    const double ax = X(a) - x, ay = Y(a) - y, bx = X(b) - x, by = Y(b) - y;
    const double sine = std::abs(ax * by - ay * bx) / (std::hypot(ax, ay) * std::hypot(bx, by) + 1e-9);
    return a != b && sine > limit ? Hang(x, y, a, b) : 0;
  }

  void Support(int node, float code) { Model.nodes[IndexOf(node)].support = code; }
  double X(int node) const { return Model.nodes[IndexOf(node)].x; }
  double Y(int node) const { return Model.nodes[IndexOf(node)].y; }
  int NodeCount() const { return static_cast<int>(Model.nodes.size()); }

 protected:
  ModelData Model;

 private:
  static std::size_t IndexOf(int node) { return static_cast<std::size_t>(node - 1); }

  std::mt19937& Random;
  double LoadInX;
};

} // namespace strutwright
