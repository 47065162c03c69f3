#include "CommandLine.h"
#include "Commands.h"
#include "ModelCsv.h"
#include "ModelSession.h"
#include "modColumns.h"
#include "modModelStore.h"

#include <array>
#include <cstddef>
#include <istream>
#include <ostream>
#include <string>

namespace strutwright {

namespace {

Json JsonRecord(const FieldTable& table, int number, const std::array<GridColumn, 6>& columns) {
  Json record = Json::object();
  record[std::string(columns[0].key)] = number;
  for (std::size_t field = 1; field < columns.size(); ++field) {
    record[std::string(columns[field].key)] = JsonNumber(table(number, static_cast<int>(field)));
  }
  return record;
}

Json JsonTable(const FieldTable& table, const std::array<GridColumn, 6>& columns) {
  Json records = Json::array();
  for (int number = 1; number <= table.Count(); ++number) records.push_back(JsonRecord(table, number, columns));
  return records;
}

void PrintJson(const std::string& file, std::ostream& out) {
  const Json units{{"x", "m"}, {"y", "m"}, {"fx", "kN"}, {"fy", "kN"}, {"e", "kN/mm2"}, {"a", "mm2"}, {"ps", "kN"}};
  PrintJsonLine({{"file", file},
                 {"capacity", GridCapacity},
                 {"units", units},
                 {"nodes", JsonTable(NodeTable, JointColumns)},
                 {"members", JsonTable(MemberTable, MemberColumns)}},
                out);
}

void PrintText(std::ostream& out) {
  PrintTable(GrJoints, out);
  out << '\n';
  PrintTable(GrMembers, out);
}

} // namespace

int ShowModel(const std::string& file, OutputFormat format, std::istream& in, std::ostream& out, std::ostream& err) {
  ModelSession session(file, err);
  if (!session.Open(in)) return ExitUsage;
  switch (format) {
  case OutputFormat::Text: PrintText(out); break;
  case OutputFormat::Csv: out << ModelToCsv(); break;
  case OutputFormat::Json: PrintJson(file, out); break;
  }
  return ExitOk;
}

} // namespace strutwright
