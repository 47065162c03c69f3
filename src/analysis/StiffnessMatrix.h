#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace strutwright {

/// The stiffness matrix K of a truss: square, 32-bit floats, indexed 1..Freedoms().  Only entries that something was
/// added to take memory, as nearly all of K is zero.  They must lie symmetrically, and none is -0.
class StiffnessMatrix {
 public:
  struct Entry {
    int column;
    float value;
    bool operator==(const Entry&) const = default;
  };

  StiffnessMatrix() = default;

  /// All zero.
  explicit StiffnessMatrix(int freedoms);

  int Freedoms() const { return static_cast<int>(Rows.size()) - 1; }

  /// An entry; 0 where nothing is stored.
  float operator()(int row, int column) const;

  void Set(int row, int column, float value) { Stored(row, column) = value; }

  /// Adds to an entry, rounded to a float.
  void Add(int row, int column, float addend);

  /// Makes equation d read D(d) = 0: row and column d zero, 1 on the diagonal.
  void Restrain(int d);

  /// What is stored of a row, by ascending column.
  std::span<const Entry> Row(int row) const;

  /// How many entries take memory.
  std::size_t StoredCount() const;

  /// Whether the same values are held, stored or not.
  bool operator==(const StiffnessMatrix& other) const;

 private:
  using Entries = std::vector<Entry>;

  void Check(int row, int column) const;
  Entries::iterator Place(Entries& row, int column);
  float& Stored(int row, int column);

  std::vector<Entries> Rows = std::vector<Entries>(1); ///< row 0 is not used
};

} // namespace strutwright
