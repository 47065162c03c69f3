#pragma once

#include "Ensure.h"

#include <array>
#include <cstddef>

namespace strutwright {

/// One member's stiffness matrix in global axes, kN/mm.  Rows and columns 1..4: x and y at node i, x and y at node j.
class MemberMatrix {
 public:
  float& operator()(int row, int column) { return Values[Index(row, column)]; }
  float operator()(int row, int column) const { return Values[Index(row, column)]; }

  bool operator==(const MemberMatrix&) const = default;

 private:
  static std::size_t Index(int row, int column) {
    Ensure(row >= 1 && row <= 4 && column >= 1 && column <= 4, "a member has four freedoms");
    return static_cast<std::size_t>(4 * (row - 1) + column - 1);
  }

  std::array<float, 16> Values{};
};

} // namespace strutwright
