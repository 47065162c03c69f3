#pragma once

#include <string_view>

namespace strutwright {

/// In a document's HTML: what follows begins on a page of its own.  On paper such parts are laid out one by one, which
/// for a hundred pages is many times as fast.
inline constexpr std::string_view HtmlNewPage = R"(<div style="page-break-before: always"></div>)";

} // namespace strutwright
