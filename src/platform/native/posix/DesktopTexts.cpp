#include "DesktopTexts.h"

#include "Markup.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace strutwright {

namespace {

/// Puts `escape(character)` in the place of each character.
template <typename Escape>
std::string Escaped(std::string_view text, Escape escape) {
  std::string escaped;
  for (const char character : text) escaped += escape(character);
  return escaped;
}

/// A value of a desktop entry, which lies on one line.
std::string EntryText(const std::string& text) {
  return Escaped(text, [](char character) -> std::string {
    switch (character) {
    case '\\': return "\\\\";
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: return {character};
    }
  });
}

/// Characters between which and a shell's there would be a difference without quotes.
constexpr std::string_view Reserved = " \t\n\r\"'\\><~|&;$*?#()`";

constexpr std::string_view EscapedInQuotes = "\"`$\\";

std::string Quoted(const std::string& path) {
  const std::string inside = Escaped(path, [](char character) {
    return (EscapedInQuotes.find(character) == std::string_view::npos ? "" : "\\") + std::string(1, character);
  });
  return "\"" + inside + "\"";
}

/// Where the lines of a group begin, after its header; npos where the list has no such group.
std::size_t GroupBegin(const std::string& list, const std::string& header) {
  for (std::size_t line = 0; line < list.size();) {
    const std::size_t end = list.find('\n', line);
    std::string_view text = std::string_view(list).substr(line, end - line);
    while (!text.empty() && (text.back() == '\r' || text.back() == ' ')) text.remove_suffix(1);
    if (text == header) return end == std::string::npos ? list.size() : end + 1;
    if (end == std::string::npos) break;
    line = end + 1;
  }
  return std::string::npos;
}

std::size_t GroupEnd(const std::string& list, std::size_t begin) {
  if (begin < list.size() && list[begin] == '[') return begin;
  const std::size_t next = list.find("\n[", begin == 0 ? 0 : begin - 1);
  return next == std::string::npos ? list.size() : next + 1;
}

/// Whether a group gives the key a value, "key=value" or "key = value".
bool GivesValue(std::string_view group, const std::string& key) {
  for (std::size_t line = 0; line < group.size();) {
    const std::size_t end = std::min(group.find('\n', line), group.size());
    const std::string_view text = group.substr(line, end - line);
    const std::size_t equals = text.find('=');
    if (equals != std::string_view::npos && text.starts_with(key) &&
        text.substr(key.size(), equals - key.size()).find_first_not_of(' ') == std::string_view::npos &&
        text.find_first_not_of("; \r", equals + 1) != std::string_view::npos) {
      return true;
    }
    line = end + 1;
  }
  return false;
}

} // namespace

std::string MimePackage(const DesktopFileType& type) {
  // The weight is above the usual 50, because the templates of an office program of old have the same extension.
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
         "  <mime-type type=\"" +
         type.MimeType() +
         "\">\n"
         "    <comment>" +
         EscapedMarkup(type.title) +
         "</comment>\n"
         "    <icon name=\"application-x-" +
         type.name +
         "\"/>\n"
         "    <glob pattern=\"*" +
         EscapedMarkup(type.extension) +
         "\" weight=\"60\"/>\n"
         "  </mime-type>\n"
         "</mime-info>\n";
}

std::string ExecCommand(const std::string& path) {
  const bool plain = path.find_first_of(Reserved) == std::string::npos;
  std::string word = EntryText(plain ? path : Quoted(path));
  if (path.find('%') == std::string::npos) return word;
  // One percent sign would begin a field code, and two become one.  Some desktops look for the program before that,
  // where it is not; env they find.
  return "env " + Escaped(word, [](char character) { return std::string(character == '%' ? 2 : 1, character); });
}

std::string DesktopEntry(const DesktopFileType& type) {
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Name=" +
         EntryText(type.program) + "\nIcon=" + type.name + "\nTryExec=" + EntryText(type.command) +
         "\nExec=" + ExecCommand(type.command) + " --open %f\nTerminal=false\nCategories=Education;Engineering;\n" +
         "MimeType=" + type.MimeType() + ";\n";
}

std::string WithDefaultApplication(const std::string& list, const std::string& mimeType, const std::string& entry) {
  const std::string header = "[Default Applications]";
  const std::string line = mimeType + "=" + entry + "\n";
  const bool endsMidLine = !list.empty() && list.back() != '\n';
  const std::string lines = endsMidLine ? list + "\n" : list;
  const std::size_t begin = GroupBegin(lines, header);
  if (begin == std::string::npos) return lines + (lines.empty() ? "" : "\n") + header + "\n" + line;
  const std::size_t end = GroupEnd(lines, begin);
  if (GivesValue(std::string_view(lines).substr(begin, end - begin), mimeType)) return list;
  return lines.substr(0, begin) + line + lines.substr(begin);
}

} // namespace strutwright
