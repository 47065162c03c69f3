#include "Markup.h"

namespace strutwright {

std::string EscapedMarkup(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    switch (character) {
    case '&': escaped += "&amp;"; break;
    case '<': escaped += "&lt;"; break;
    case '>': escaped += "&gt;"; break;
    case '"': escaped += "&quot;"; break;
    default: escaped += character;
    }
  }
  return escaped;
}

} // namespace strutwright
