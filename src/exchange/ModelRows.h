#pragma once

#include "modModelFile.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

inline constexpr int MaxMembers = 32767;

/// A model row by row, as it comes in from elsewhere.
struct ModelRows {
  /// Values by field of NodeTable or MemberTable; field 0 is not used.
  using Row = std::array<float, 6>;

  std::vector<Row> nodes;
  std::vector<Row> members;
  int capacity = -1; ///< below 0 where it is not known
};

/// Throws ImportError where a model can't take one node or one member more than `count`.
void CheckRoomForNode(std::size_t count, int line);
void CheckRoomForMember(std::size_t count, int line);

/// The model.  Without a capacity it becomes 20, or as many as there are nodes or members where that is more.
StoredModel ModelOf(const ModelRows& rows);

/// A text in quotation marks, the middle of a long one left out.
std::string Quoted(const std::string& text);

} // namespace strutwright
