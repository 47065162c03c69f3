#include "modImport.h"

#include "DxfDrawing.h"
#include "DxfPairs.h"
#include "ImportError.h"
#include "modModelJson.h"
#include "modTables.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace strutwright {

namespace {

enum class TextKind { Table, Json, Dxf, Unknown };

/// Without the mark and the blanks in front.
std::string_view Beginning(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  return text;
}

bool HasHeadings(const std::string& text) {
  try {
    return BeginsWithHeadings(text);
  } catch (const ImportError&) {
    return false;
  }
}

TextKind KindOf(const std::string& text) {
  const std::string_view beginning = Beginning(text);
  if (beginning.starts_with('{')) return TextKind::Json;
  if (text.starts_with(BinaryDxf) || BeginsAsDxf(text)) return TextKind::Dxf;
  return HasHeadings(text) ? TextKind::Table : TextKind::Unknown;
}

TextKind KindByName(const std::string& name) {
  const std::string small = InSmallLetters(name);
  if (small.ends_with(".dxf")) return TextKind::Dxf;
  return small.ends_with(".json") ? TextKind::Json : TextKind::Table;
}

TextKind KindOf(const std::string& text, const std::string& name) {
  const TextKind kind = KindOf(text);
  return kind == TextKind::Unknown ? KindByName(name) : kind;
}

DrawnTruss TrussOf(TextKind kind, const std::string& text, const DrawingOptions& options,
                   std::vector<std::string>& remarks) {
  if (kind == TextKind::Dxf) return TrussOfDrawing(ReadDxf(text), options, remarks);
  return {kind == TextKind::Json ? RowsFromJson(text) : RowsFromTables(text, remarks), {}};
}

} // namespace

bool CanBeImported(const std::string& text) { return KindOf(text) != TextKind::Unknown; }

bool IsDrawing(const std::string& text, const std::string& name) { return KindOf(text, name) == TextKind::Dxf; }

ImportedModel ImportText(const std::string& text, const std::string& name, const DrawingOptions& options) {
  ImportedModel imported;
  DrawnTruss truss = TrussOf(KindOf(text, name), text, options, imported.remarks);
  imported.model = ModelOf(truss.rows);
  imported.layers = std::move(truss.layers);
  return imported;
}

} // namespace strutwright
