#include "Neighbourhood.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

constexpr double CoordinateRounding = 2e-7; // a few units in the last place of a 32-bit float
constexpr double SizeShare = 1e-6;
constexpr double MostCellsAcross = 2000;
/// How far the cells begin before the truss, in cells: nodes at equal distances then do not lie between two cells.
constexpr double Offset = 0.37;

double LargestCoordinate(const CheckedTruss& truss) {
  double largest = 0;
  for (const double x : truss.x) largest = std::max(largest, std::abs(x));
  for (const double y : truss.y) largest = std::max(largest, std::abs(y));
  return largest;
}

/// Length of the member in the middle of all lengths, m.
double MedianLength(const CheckedTruss& truss) {
  if (truss.members.empty()) return 0;
  std::vector<double> lengths;
  for (const CheckedMember& member : truss.members) lengths.push_back(member.length / 1000);
  const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
  std::nth_element(lengths.begin(), middle, lengths.end());
  return *middle;
}

double EdgeFor(const CheckedTruss& truss) {
  const double spread = truss.size / std::sqrt(1.0 + truss.nodeCount);
  const double edge = std::max(truss.members.empty() ? spread : MedianLength(truss), truss.size / MostCellsAcross);
  return edge > 0 ? edge : 1;
}

double LowestOf(const std::vector<double>& coordinates) {
  return coordinates.size() < 2 ? 0 : *std::min_element(coordinates.begin() + 1, coordinates.end());
}

} // namespace

Neighbourhood::Neighbourhood(const CheckedTruss& truss)
    : Margin(SizeShare * truss.size + CoordinateRounding * LargestCoordinate(truss)), Edge(EdgeFor(truss)),
      Left(LowestOf(truss.x) - Offset * Edge), Bottom(LowestOf(truss.y) - Offset * Edge) {
  for (int n = 1; n <= truss.nodeCount; ++n) AddNode(truss, n);
  for (std::size_t m = 0; m < truss.members.size(); ++m) AddMember(truss, static_cast<int>(m));
  for (Entries* entries : {&Nodes, &Members}) {
    std::sort(entries->begin(), entries->end());
    entries->erase(std::unique(entries->begin(), entries->end()), entries->end());
  }
}

std::int64_t Neighbourhood::Across(double x) const { return static_cast<std::int64_t>(std::floor((x - Left) / Edge)); }

std::int64_t Neighbourhood::Along(double y) const { return static_cast<std::int64_t>(std::floor((y - Bottom) / Edge)); }

void Neighbourhood::AddCells(Entries& entries, std::int64_t column, double low, double high, int index) const {
  constexpr std::int64_t columnStep = 1 << 20; // far more than there are cells in a column
  for (std::int64_t row = Along(low - Margin); row <= Along(high + Margin); ++row) {
    entries.push_back({column * columnStep + row, index});
  }
}

void Neighbourhood::AddNode(const CheckedTruss& truss, int node) {
  const double x = truss.x[At(node)];
  const double y = truss.y[At(node)];
  for (std::int64_t column = Across(x - Margin); column <= Across(x + Margin); ++column) {
    AddCells(Nodes, column, y, y, node);
  }
}

void Neighbourhood::AddMember(const CheckedTruss& truss, int index) {
  const CheckedMember& member = truss.members[static_cast<std::size_t>(index)];
  const bool rightward = member.c >= 0;
  const int first = rightward ? member.i : member.j;
  const int last = rightward ? member.j : member.i;
  const double x0 = truss.x[At(first)], y0 = truss.y[At(first)], x1 = truss.x[At(last)], y1 = truss.y[At(last)];
  Boxes.push_back({x0 - Margin, x1 + Margin, std::min(y0, y1) - Margin, std::max(y0, y1) + Margin});
  const auto heightAt = [&](double x) { return y0 + (y1 - y0) * std::clamp((x - x0) / (x1 - x0), 0.0, 1.0); };
  for (std::int64_t column = Across(x0 - Margin); column <= Across(x1 + Margin); ++column) {
    const double left = Left + static_cast<double>(column) * Edge;
    const bool steep = x1 - x0 <= Margin;
    const double from = steep ? y0 : heightAt(left - Margin);
    const double to = steep ? y1 : heightAt(left + Edge + Margin);
    AddCells(Members, column, std::min(from, to), std::max(from, to), index);
  }
}

bool Neighbourhood::MayTouch(int first, int second) const {
  const Box& a = Boxes[static_cast<std::size_t>(first)];
  const Box& b = Boxes[static_cast<std::size_t>(second)];
  return a.left <= b.right && b.left <= a.right && a.bottom <= b.top && b.bottom <= a.top;
}

} // namespace strutwright
