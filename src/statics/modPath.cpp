#include "modPath.h"

#include "modModelStore.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <set>
#include <sstream>
#include <tuple>

namespace strutwright {

namespace {

constexpr const char* PathExample = "numbers and ranges, such as 1-10 or 1,3,5";

double XOf(int node) { return NodeTable(node, NodeX); }
double YOf(int node) { return NodeTable(node, NodeY); }

/// Without blanks beside commas and dashes; one between two digits parts nothing.
std::string WithoutBlanks(const std::string& text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  std::string kept;
  bool parted = false;
  for (const char c : text) {
    if (isBlank(c)) {
      parted = true;
      continue;
    }
    if (parted && isDigit(c) && !kept.empty() && isDigit(kept.back())) kept += ' ';
    parted = false;
    kept += c;
  }
  return kept;
}

/// The value of digits; nothing where there is anything else.  What is too large for an int is larger than any node.
std::optional<int> NumberOf(const std::string& digits) {
  const bool plain = !digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos;
  if (!plain) return std::nullopt;
  int number = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return result.ec == std::errc() ? number : std::numeric_limits<int>::max();
}

std::string UnknownNode(const std::string& digits) {
  if (NodeCount == 0) return "The model has no nodes to take a path over: enter a truss first";
  return "The path names node " + digits + ", but the nodes are numbered 1 to " + std::to_string(NodeCount) +
         ": name nodes that exist";
}

/// Appends the nodes of "7" or of "3-9".  Returns what is wrong with it.
std::string AppendPart(const std::string& part, std::vector<int>& nodes) {
  const std::size_t dash = part.find('-');
  const std::string first = part.substr(0, dash);
  const std::string last = dash == std::string::npos ? first : part.substr(dash + 1);
  for (const std::string& digits : {first, last}) {
    const std::optional<int> node = NumberOf(digits);
    if (!node) return "\"" + part + "\" is no part of a path: write node " + PathExample;
    if (*node < 1 || *node > NodeCount) return UnknownNode(digits);
  }
  const int end = *NumberOf(last);
  int node = *NumberOf(first);
  const int step = node <= end ? 1 : -1;
  for (; node != end; node += step) nodes.push_back(node);
  nodes.push_back(end);
  return "";
}

/// The first node that a path names again; 0 where there is none.
int RepeatedNode(const std::vector<int>& nodes) {
  std::set<int> seen;
  const auto again = std::find_if(nodes.begin(), nodes.end(), [&seen](int node) { return !seen.insert(node).second; });
  return again == nodes.end() ? 0 : *again;
}

std::string TurnFault(const std::vector<int>& nodes) {
  if (nodes.size() < 2) return "";
  const bool rises = XOf(nodes[1]) > XOf(nodes[0]);
  for (std::size_t k = 1; k < nodes.size(); ++k) {
    const double step = XOf(nodes[k]) - XOf(nodes[k - 1]);
    if (rises ? step > 0 : step < 0) continue;
    return "From node " + std::to_string(nodes[k - 1]) + " to node " + std::to_string(nodes[k]) + " x does not " +
           (k == 1  ? "change"
            : rises ? "go on rising"
                    : "go on falling") +
           ": name the nodes of a path from one end to the other";
  }
  return "";
}

std::string FaultOf(const std::vector<int>& nodes) {
  const int repeated = RepeatedNode(nodes);
  if (repeated == 0) return TurnFault(nodes);
  return "The path names node " + std::to_string(repeated) + " twice: name each node once";
}

using Neighbours = std::vector<std::vector<int>>;

/// The nodes that members lead to on the right of each.
Neighbours RightNeighbours() {
  Neighbours neighbours(static_cast<std::size_t>(NodeCount) + 1);
  for (int m = 1; m <= MemberCount; ++m) {
    int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
    int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
    if (std::min(i, j) < 1 || std::max(i, j) > NodeCount || XOf(i) == XOf(j)) continue;
    if (XOf(i) > XOf(j)) std::swap(i, j);
    neighbours[static_cast<std::size_t>(i)].push_back(j);
  }
  return neighbours;
}

/// side: -1 for the lower chain, 1 for the upper.  From each node the member is taken that lies farthest on that side.
std::vector<int> ChainOf(const Neighbours& neighbours, int side) {
  int node = 1;
  for (int n = 2; n <= NodeCount; ++n) {
    if (std::tuple(-XOf(n), side * YOf(n)) > std::tuple(-XOf(node), side * YOf(node))) node = n;
  }
  std::vector<int> chain{node};
  while (!neighbours[static_cast<std::size_t>(node)].empty()) {
    const std::vector<int>& next = neighbours[static_cast<std::size_t>(node)];
    const auto slope = [node, side](int to) { return side * (YOf(to) - YOf(node)) / (XOf(to) - XOf(node)); };
    node = *std::max_element(next.begin(), next.end(), [&](int a, int b) { return slope(a) < slope(b); });
    chain.push_back(node);
  }
  return chain;
}

/// How far a chain goes up and down, as a part of its length, in steps that rounding does not reach.
long UnevennessOf(const std::vector<int>& chain) {
  constexpr double stepsOfLength = 1000;
  double ups = 0;
  for (std::size_t k = 1; k < chain.size(); ++k) ups += std::abs(YOf(chain[k]) - YOf(chain[k - 1]));
  return std::lround(stepsOfLength * ups / (XOf(chain.back()) - XOf(chain.front())));
}

/// The larger, the more likely loaded.
std::tuple<long, long, long> LikelihoodOf(const std::vector<int>& chain) {
  const auto count = [&chain](NodeField field) {
    return std::count_if(chain.begin(), chain.end(), [field](int node) { return NodeTable(node, field) != 0; });
  };
  return {count(NodeForceY), -UnevennessOf(chain), count(NodeSupport)};
}

} // namespace

PathReading ReadPath(const std::string& text) {
  const std::string path = WithoutBlanks(text);
  if (path.empty()) return {{}, std::string("The path has no nodes: write node ") + PathExample};
  std::vector<int> nodes;
  std::istringstream parts(path + (path.back() == ',' ? "," : ""));
  for (std::string part; std::getline(parts, part, ',');) {
    const std::string fault = AppendPart(part, nodes);
    if (!fault.empty()) return {{}, fault};
    // What is longer names a node twice, and need not grow on.
    if (nodes.size() > static_cast<std::size_t>(NodeCount)) break;
  }
  const std::string fault = FaultOf(nodes);
  return fault.empty() ? PathReading{nodes, ""} : PathReading{{}, fault};
}

std::string PathText(const std::vector<int>& nodes) {
  std::string text;
  for (std::size_t first = 0; first < nodes.size();) {
    std::size_t last = first;
    const auto step = [&nodes](std::size_t k) { return nodes[k + 1] - nodes[k]; };
    while (last + 1 < nodes.size() && std::abs(step(last)) == 1 && step(last) == step(first)) ++last;
    if (last == first + 1) last = first; // two numbers are no range
    text += (text.empty() ? "" : ",") + std::to_string(nodes[first]);
    if (last > first) text += "-" + std::to_string(nodes[last]);
    first = last + 1;
  }
  return text;
}

std::vector<int> ProposePath() {
  if (NodeCount == 0) return {};
  const Neighbours neighbours = RightNeighbours();
  std::vector<int> lower = ChainOf(neighbours, -1);
  std::vector<int> upper = ChainOf(neighbours, 1);
  if (lower.size() < 2) return upper.size() < 2 ? std::vector<int>{} : upper;
  if (upper.size() < 2) return lower;
  return LikelihoodOf(upper) > LikelihoodOf(lower) ? upper : lower;
}

} // namespace strutwright
