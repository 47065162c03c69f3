#include "modGenerators.h"

#include "AnalysisState.h"
#include "DataCellWriter.h"
#include "EditingState.h"
#include "ModelEvents.h"
#include "Platform.h"
#include "modGrids.h"
#include "modKeepResults.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modRangeList.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace strutwright {

namespace {

struct Point {
  float x = 0;
  float y = 0;
};

struct NodeLine {
  Point start;
  Point end;
};

/// Counts one more and writes its row; the grid gets a row more where it has too few.
void AppendRow(Grid& grid, std::int16_t& count, const std::string& first, const std::string& second) {
  const int row = count + 1;
  if (row > grid.RowCount() - 1) grid.SetRowCount(row + 1);
  count = static_cast<std::int16_t>(row);
  grid.SetText(row, 0, std::to_string(row));
  grid.SetText(row, 1, first);
  grid.SetText(row, 2, second);
}

int ReadNodeNumber(const std::string& text) {
  if (const std::optional<std::int16_t> nodes = IntegerValue(text)) return *nodes;
  ShowMessage(MessageIcon::Information, "Please enter a positive integer for the number of nodes");
  return 0;
}

/// Nothing, after a message, when a coordinate is not numeric.
std::optional<NodeLine> ReadEnds(const NodeLineTexts& texts) {
  const auto x1 = NumericValue(texts.x1);
  const auto y1 = NumericValue(texts.y1);
  const auto x2 = NumericValue(texts.x2);
  const auto y2 = NumericValue(texts.y2);
  if (x1 && y1 && x2 && y2) return NodeLine{{*x1, *y1}, {*x2, *y2}};
  ShowMessage(MessageIcon::Information, " Please enter numeric data for coordinates of node line");
  return std::nullopt;
}

/// x = (x2 - x1) * k / (n - 1) + x1.   Checked: k = 0 gives x1, k = n - 1 gives x2.
float Between(float start, float end, int k, int n) {
  const auto from = static_cast<double>(start);
  return static_cast<float>((static_cast<double>(end) - from) * k / (n - 1) + from);
}

void AddNodesOf(const NodeLine& line, int n) {
  for (int k = 0; k < n; ++k) addNode(Between(line.start.x, line.end.x, k, n), Between(line.start.y, line.end.y, k, n));
}

/// Results stay marked valid as long as there is one for each node and member.
void RebuildAfterAssignment() {
  const auto counts = std::pair(NodeCount, MemberCount);
  RebuildModelFromGrids();
  if (AnalysisDone != FlagFalse && counts != std::pair(NodeCount, MemberCount)) EndAnalysis();
}

} // namespace

void addNode(float x, float y) { AppendRow(GrJoints, NodeCount, NumberText(x), NumberText(y)); }

void AddMember(std::int16_t i, std::int16_t j) {
  AppendRow(GrMembers, MemberCount, std::to_string(i), std::to_string(j));
}

void GenerateNodeLine(const NodeLineTexts& texts) {
  const int n = ReadNodeNumber(texts.nodes);
  const std::optional<NodeLine> line = ReadEnds(texts);
  if (!line) return;
  RebuildKeepingResults(); // rows pasted since the last rebuild are not free
  const int rows = 1 + NodeCount + std::max(n, 1);
  if (rows > GrJoints.RowCount()) GrJoints.SetRowCount(rows); // throws before anything has changed
  EndAnalysis();
  if (n < 2) {
    addNode(line->start.x, line->start.y);
  } else {
    AddNodesOf(*line, n);
  }
  RebuildModelFromGrids();
  ModelEvents().ModelChanged();
}

void fillListedRows(const std::string& list, Grid& grid, const std::string& value1, const std::string& value2,
                    int column1, int column2) {
  parseRangeList(list);
  if (rangeError) return;
  MakeRoom(grid, static_cast<std::size_t>(std::max<int>(maxOfList(rangeList), 0)));
  // Writing a row that is listed twice once gives the same texts, and quickly for ranges typed again and again.
  std::vector<int> rows;
  std::unique_copy(std::next(rangeList.begin()), rangeList.end(), std::back_inserter(rows));
  DataCellWriter cells(grid);
  for (const int row : rows) cells.Write(row, column1, value1);
  for (const int row : rows) cells.Write(row, column2, value2);
  cells.ShowFirstMiss();
  RebuildAfterAssignment();
  ModelEvents().ModelChanged();
  rangeError = false;
}

} // namespace strutwright
