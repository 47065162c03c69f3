#include "CommandLine.h"
#include "Commands.h"
#include "ModelCsv.h"
#include "ModelSession.h"
#include "modColumns.h"
#include "modModelStore.h"

#include <ostream>

namespace strutwright {

namespace {

std::string JsonRecord(const FieldTable& table, int number, const std::array<GridColumn, 6>& columns) {
  std::vector<std::pair<std::string_view, std::string>> values{{columns[0].key, std::to_string(number)}};
  for (std::size_t field = 1; field < columns.size(); ++field) {
    values.emplace_back(columns[field].key, JsonNumber(table(number, static_cast<int>(field))));
  }
  return JsonObject(values);
}

std::string JsonTable(const FieldTable& table, const std::array<GridColumn, 6>& columns) {
  std::vector<std::string> records;
  for (int number = 1; number <= table.Count(); ++number) records.push_back(JsonRecord(table, number, columns));
  return JsonList(records);
}

void PrintJson(const std::string& file, std::ostream& out) {
  out << JsonObject({{"file", JsonText(file)},
                     {"capacity", std::to_string(GridCapacity)},
                     {"nodes", JsonTable(NodeTable, JointColumns)},
                     {"members", JsonTable(MemberTable, MemberColumns)}})
      << '\n';
}

void PrintText(std::ostream& out) {
  PrintTable(GrJoints, out);
  out << '\n';
  PrintTable(GrMembers, out);
}

} // namespace

int ShowModel(const std::string& file, OutputFormat format, std::ostream& out, std::ostream& err) {
  ModelSession session(file, err);
  if (!session.Open()) return ExitUsage;
  switch (format) {
  case OutputFormat::Text: PrintText(out); break;
  case OutputFormat::Csv: out << ModelToCsv(); break;
  case OutputFormat::Json: PrintJson(file, out); break;
  }
  return ExitOk;
}

} // namespace strutwright
