#pragma once

#include <string>
#include <string_view>

namespace strutwright {

/// A text as it stands in HTML and XML, also inside the quotes of an attribute.
std::string EscapedMarkup(std::string_view text);

} // namespace strutwright
