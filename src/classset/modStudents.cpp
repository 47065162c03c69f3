#include "modStudents.h"

#include "ClassFault.h"
#include "ClassTable.h"
#include "ClassTexts.h"
#include "CsvText.h"
#include "ImportError.h"
#include "modNumberText.h"
#include "modTables.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace strutwright {

namespace {

constexpr std::size_t LongestName = 200; // bytes, of the 255 that folders' names may have
constexpr std::array<std::string_view, 19> Headings{"student",   "students", "name",          "names",
                                                    "id",        "number",   "full name",     "first name",
                                                    "last name", "surname",  "student name",  "student id",
                                                    "id number", "email",    "email address", "matriculation number",
                                                    "user",      "username", "login"};

/// The files that lie beside the students' folders.
constexpr std::array<std::string_view, 5> FilesOfTheSet{"key.csv", "key.pdf", "key.html", "key.tex", "moodle.xml"};

bool HoldsAnyOf(std::string_view name, std::string_view signs) { return name.find_first_of(signs) != name.npos; }

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t length = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if ((first >= 0x80 && first < 0xC2) || first > 0xF4 || at + length > text.size()) return false;
    for (std::size_t i = 1; i < length; ++i) {
      if ((static_cast<unsigned char>(text[at + i]) & 0xC0U) != 0x80U) return false;
    }
    const auto second = length > 2 ? static_cast<unsigned char>(text[at + 1]) : 0U;
    const bool isTooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool isNoSign = (first == 0xED && second >= 0xA0) || (first == 0xF4 && second >= 0x90);
    const std::string_view sign = text.substr(at, length);
    if (isTooLong || isNoSign || sign == "\xEF\xBF\xBE" || sign == "\xEF\xBF\xBF") return false;
    at += length;
  }
  return true;
}

/// Why a name can't be that of a folder; empty where it can.
std::string FaultOfName(std::string_view name) {
  if (name.empty()) return "is blank";
  if (!IsUtf8(name)) return "is not valid UTF-8";
  if (name == "." || name == "..") return "means another folder";
  if (name.front() == '.') return "begins with a point, which hides a folder";
  if (name.back() == '.') return "ends in a point, which some systems cut off";
  if (HoldsAnyOf(name, "/\\")) return "holds a slash, which parts folders";
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; };
  if (std::any_of(name.begin(), name.end(), isControl)) return "holds a sign that can't be printed";
  if (name.size() > LongestName) return "is longer than 200 bytes";
  const std::string small = InSmallLetters(name);
  if (std::find(FilesOfTheSet.begin(), FilesOfTheSet.end(), small) == FilesOfTheSet.end()) return "";
  return "is that of a file of the class set";
}

/// A name as it may stand in a message.
std::string Shown(std::string_view name) {
  std::string shown(name.substr(0, 60));
  if (!IsUtf8(shown)) return "";
  std::replace_if(
      shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return InQuotes(shown) + " ";
}

/// Takes in names line by line.
class NameList {
 public:
  void Add(std::string_view name, int line) {
    const std::string fault = FaultOfName(name);
    if (!fault.empty()) {
      throw ClassFault("Line " + std::to_string(line) + " of the list: the name " + Shown(name) + fault +
                       "; give each student a name of one's own that can be a folder's");
    }
    const auto [first, isNew] = Lines.emplace(InSmallLetters(name), line);
    if (!isNew) {
      throw ClassFault("Line " + std::to_string(line) + " of the list: the name " + Shown(name) +
                       "is there twice, in line " + std::to_string(first->second) +
                       " too; give each student a name of one's own");
    }
    if (Names.size() == MostStudents) throw ClassFault("A class has at most 1000 students: divide the list");
    Names.emplace_back(name);
  }

  std::vector<std::string> Names;

 private:
  std::map<std::string, int> Lines; ///< in small letters: on some disks these names are one
};

bool IsHeading(std::string_view name) {
  return std::find(Headings.begin(), Headings.end(), InSmallLetters(name)) != Headings.end();
}

bool IsBlankLine(const TableLine& line) {
  return std::all_of(line.fields.begin(), line.fields.end(),
                     [](const std::string& field) { return TrimBlanks(field).empty(); });
}

} // namespace

std::vector<std::string> ReadStudents(const std::string& list) {
  NameList names;
  bool isFirst = true;
  try {
    const TableText table = ReadableTable(list);
    CsvReader reader(table.text, table.separator);
    while (!reader.AtEnd()) {
      const TableLine line = reader.Next();
      if (IsBlankLine(line)) continue;
      const std::string_view name = TrimBlanks(line.fields.front());
      if (!isFirst || !IsHeading(name)) names.Add(name, line.line);
      isFirst = false;
    }
  } catch (const ImportError& error) {
    throw ClassFault("The list can't be read: " + error.Sentence());
  }
  if (names.Names.empty()) throw ClassFault("The list names no student: write a name a line");
  return names.Names;
}

std::vector<std::string> NumberedStudents(int count) {
  if (count < 1 || static_cast<std::size_t>(count) > MostStudents) {
    throw ClassFault("The number of students must be 1 to 1000");
  }
  const std::size_t digits = std::max<std::size_t>(2, std::to_string(count).size());
  std::vector<std::string> names;
  for (int student = 1; student <= count; ++student) {
    const std::string number = std::to_string(student);
    names.push_back("student-" + std::string(digits - number.size(), '0') + number);
  }
  return names;
}

} // namespace strutwright
