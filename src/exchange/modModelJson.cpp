#include "modModelJson.h"

#include "ImportError.h"
#include "JsonText.h"
#include "modColumns.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cstddef>
#include <optional>

namespace strutwright {

namespace {

using Columns = std::array<GridColumn, 6>;

OrderedJson JsonRecord(const FieldTable& table, int number, const Columns& columns) {
  OrderedJson record = OrderedJson::object();
  record[std::string(columns[0].key)] = number;
  for (std::size_t field = 1; field < columns.size(); ++field) {
    record[std::string(columns[field].key)] = JsonNumber(table(number, static_cast<int>(field)));
  }
  return record;
}

OrderedJson JsonTable(const FieldTable& table, const Columns& columns) {
  OrderedJson records = OrderedJson::array();
  for (int number = 1; number <= table.Count(); ++number) records.push_back(JsonRecord(table, number, columns));
  return records;
}

/// Takes the values of a text as they come, so that no text, however nested, takes more memory than its model.
class ModelTaker : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit ModelTaker(const std::string& text) : Text(text) {}

  /// Called after the last value.
  ModelRows Take() {
    if (!HasNodes) throw ImportError(0, "the list \"nodes\" is missing");
    if (!HasMembers) throw ImportError(0, "the list \"members\" is missing");
    return std::move(Rows);
  }

  bool key(string_t& name) override {
    if (Skipped == 0) Key = name;
    return true;
  }
  bool null() override { return NoNumber("null"); }
  bool boolean(bool value) override { return NoNumber(value ? "true" : "false"); }
  bool string(string_t& value) override { return NoNumber(Quoted(value)); }
  bool binary(binary_t& /*value*/) override { return NoNumber("binary"); }
  bool number_integer(number_integer_t value) override { return TakeNumber(std::to_string(value)); }
  bool number_unsigned(number_unsigned_t value) override { return TakeNumber(std::to_string(value)); }
  bool number_float(number_float_t /*value*/, const string_t& text) override { return TakeNumber(text); }

  bool start_object(std::size_t /*size*/) override {
    if (Skipped > 0 || Place == Where::Record) return Skip();
    if (Place == Where::Before) {
      Place = Where::Model;
    } else if (Place == Where::Table) {
      Place = Where::Record;
      Row = {};
      Seen.reset();
    } else {
      CheckIsOther("an object");
      return Skip();
    }
    return true;
  }

  bool end_object() override {
    if (Unskip()) return true;
    if (Place == Where::Record) {
      EndRecord();
    } else {
      Place = Where::After;
    }
    return true;
  }

  bool start_array(std::size_t /*size*/) override {
    if (Skipped > 0 || Place == Where::Record) return Skip();
    if (Place == Where::Table) throw ImportError(0, Next() + " is a list");
    if (Place == Where::Before) throw ImportError(0, "a model in JSON begins with \"{\", not with \"[\"");
    if (Key != "nodes" && Key != "members") {
      CheckIsOther("a list");
      return Skip();
    }
    BeginTable();
    return true;
  }

  bool end_array() override {
    if (!Unskip()) Place = Where::Model;
    return true;
  }

  bool parse_error(std::size_t position, const std::string& /*token*/,
                   const nlohmann::json::exception& error) override {
    if (error.id == 406) throw ImportError(0, InRecord() + "a number is too large");
    const auto end = Text.begin() + static_cast<std::ptrdiff_t>(std::min(position, Text.size()));
    const int line = 1 + static_cast<int>(std::count(Text.begin(), end, '\n'));
    throw ImportError(line, position > Text.size() ? "the JSON ends in the middle" : "this is no JSON");
  }

 private:
  enum class Where { Before, Model, Table, Record, After };

  const Columns& TheColumns() const { return OfNodes ? JointColumns : MemberColumns; }
  std::vector<ModelRows::Row>& TheRows() { return OfNodes ? Rows.nodes : Rows.members; }

  /// "node 3", of the record that is read or comes next.
  std::string Next() { return std::string(TheColumns()[0].key) + " " + std::to_string(TheRows().size() + 1); }
  std::string InRecord() { return Place == Where::Record ? Next() + ": " : ""; }

  bool Skip() {
    if (Place == Where::Record && Skipped == 0 && FieldOfKey()) {
      throw ImportError(0, Quoted(Key) + " of " + Next() + " is not a number");
    }
    ++Skipped;
    return true;
  }

  bool Unskip() {
    if (Skipped == 0) return false;
    --Skipped;
    return true;
  }

  /// Values of the model that are not read may be anything.
  void CheckIsOther(const std::string& what) const {
    if (Key == "nodes" || Key == "members") throw ImportError(0, Quoted(Key) + " is " + what + " instead of a list");
    if (Key == "capacity" || Key == "version") throw ImportError(0, Quoted(Key) + " is not a number");
  }

  void BeginTable() {
    OfNodes = Key == "nodes";
    bool& has = OfNodes ? HasNodes : HasMembers;
    if (has) throw ImportError(0, "the list " + Quoted(Key) + " stands there twice");
    has = true;
    Place = Where::Table;
  }

  std::optional<std::size_t> FieldOfKey() const {
    for (std::size_t field = 0; field < TheColumns().size(); ++field) {
      if (TheColumns()[field].key == Key) return field;
    }
    return std::nullopt;
  }

  bool NoNumber(const std::string& what) {
    if (Skipped > 0) return true;
    if (Place == Where::Before) throw ImportError(0, "a model in JSON begins with \"{\"");
    if (Place == Where::Table) throw ImportError(0, Next() + " is " + what);
    if (Place == Where::Model) CheckIsOther(what);
    if (Place == Where::Record && FieldOfKey()) {
      throw ImportError(0, Quoted(Key) + " of " + Next() + " is " + what + " instead of a number");
    }
    return true;
  }

  bool TakeNumber(const std::string& text) {
    if (Skipped > 0) return true;
    if (Place == Where::Before) throw ImportError(0, "a model in JSON begins with \"{\"");
    if (Place == Where::Table) throw ImportError(0, Next() + " is " + text);
    if (Place == Where::Model) TakeOfModel(text);
    if (Place == Where::Record) TakeOfRecord(text);
    return true;
  }

  void TakeOfModel(const std::string& text) {
    if (Key == "version" && NumericValue(text) != static_cast<float>(JsonVersion)) {
      throw ImportError(0, "this is version " + text + " of the form; this program reads version " +
                               std::to_string(JsonVersion));
    }
    if (Key == "capacity") {
      const auto capacity = IntegerValue(text);
      if (!capacity || *capacity < 0) throw ImportError(0, "\"capacity\" is not a number from 0 to 32767");
      Rows.capacity = *capacity;
    }
    if (Key == "nodes" || Key == "members") CheckIsOther(text);
  }

  void TakeOfRecord(const std::string& text) {
    const auto field = FieldOfKey();
    if (!field) return;
    const auto value = NumericValue(text);
    if (!value) throw ImportError(0, Quoted(Key) + " of " + Next() + " is " + text + ", which is too large");
    Row[*field] = *value;
    Seen.set(*field);
  }

  void EndRecord() {
    Place = Where::Table;
    const std::size_t required = OfNodes ? 2 : 4; // what may be missing follows
    for (std::size_t field = 1; field <= required; ++field) {
      if (!Seen.test(field)) throw ImportError(0, Next() + " has no " + Quoted(std::string(TheColumns()[field].key)));
    }
    if (Seen.test(0) && Row[0] != static_cast<float>(TheRows().size() + 1)) {
      throw ImportError(0, std::string(TheColumns()[0].key) + " " + ShortestText(Row[0]) + " stands where " + Next() +
                               " is expected");
    }
    OfNodes ? CheckRoomForNode(Rows.nodes.size(), 0) : CheckRoomForMember(Rows.members.size(), 0);
    TheRows().push_back(Row);
  }

  const std::string& Text;
  ModelRows Rows;
  Where Place = Where::Before;
  std::size_t Skipped = 0; ///< how deep it is inside a value that is not read
  std::string Key;
  bool OfNodes = true;
  bool HasNodes = false;
  bool HasMembers = false;
  ModelRows::Row Row{};
  std::bitset<6> Seen;
};

} // namespace

std::string ModelToJson(const std::string& file) {
  const OrderedJson units{{"x", "m"},      {"y", "m"},   {"fx", "kN"}, {"fy", "kN"},
                          {"e", "kN/mm2"}, {"a", "mm2"}, {"ps", "kN"}};
  return JsonLine({{"version", JsonVersion},
                   {"file", file},
                   {"capacity", GridCapacity},
                   {"units", units},
                   {"nodes", JsonTable(NodeTable, JointColumns)},
                   {"members", JsonTable(MemberTable, MemberColumns)}});
}

ModelRows RowsFromJson(const std::string& text) {
  ModelTaker taker(text);
  nlohmann::json::sax_parse(text, &taker);
  return taker.Take();
}

} // namespace strutwright
