#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace strutwright {

/// Keeps the order of its keys, and prints a float with the digits that read back to the same float.
using OrderedJson =
    nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool, std::int64_t, std::uint64_t, float>;

/// The version of the form that models and results have in JSON; docs/strutwright.schema.json describes it.
inline constexpr int JsonVersion = 1;

/// The text with the replacement character for what is not valid UTF-8.
std::string ValidText(const std::string& text);

/// A number: zero without a sign, null where it is not finite.
OrderedJson JsonNumber(float value);

/// A list of what `value` makes of each item.
template <typename Items, typename Value>
OrderedJson JsonListOf(const Items& items, const Value& value) {
  OrderedJson list = OrderedJson::array();
  for (const auto& item : items) list.push_back(value(item));
  return list;
}

/// A value as one line; what is not valid UTF-8 becomes the replacement character.
std::string JsonLine(const OrderedJson& value);

} // namespace strutwright
