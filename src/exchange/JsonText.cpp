#include "JsonText.h"

#include <cmath>

namespace strutwright {

std::string ValidText(const std::string& text) {
  return nlohmann::json::parse(nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

OrderedJson JsonNumber(float value) {
  if (!std::isfinite(value)) return nullptr;
  return value == 0 ? 0.0F : value;
}

std::string JsonLine(const OrderedJson& value) {
  return value.dump(-1, ' ', false, OrderedJson::error_handler_t::replace) + "\n";
}

} // namespace strutwright
