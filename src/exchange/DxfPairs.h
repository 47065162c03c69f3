#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

/// A group of a DXF file: a code on one line, its value on the next.
struct DxfPair {
  int code = 0;
  std::string_view value; ///< without the blanks around it
  int line = 0;           ///< of the value
};

/// Takes the groups of a DXF text one after another; comments are left out.
class DxfPairs {
 public:
  explicit DxfPairs(std::string_view text);

  /// Nothing behind the last one.  Throws ImportError where a code is none or has no value.
  std::optional<DxfPair> Next();

  int Line() const { return LineNumber; }

 private:
  std::string_view TakeLine();

  std::string_view Rest;
  int LineNumber = 0; ///< of the line taken last
};

/// Whether a text begins as a DXF file does.
bool BeginsAsDxf(std::string_view text);

/// The number of a group.  Throws ImportError where it is none or no finite double.
double DxfNumber(const DxfPair& pair);

/// The whole number of a group, 0 where it is none.
int DxfWhole(const DxfPair& pair);

/// Coordinates and numbers of an entity: group by group, in the order of the file.
using DxfGroups = std::vector<DxfPair>;

/// The first value under a code; nothing where there is none.
const DxfPair* FindGroup(const DxfGroups& groups, int code);

/// Its number; `otherwise` where there is none.
double NumberOf(const DxfGroups& groups, int code, double otherwise = 0);

} // namespace strutwright
