#pragma once

#include "modModelStore.h"

#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace strutwright {

/// Does work on another model than the open one: the tables hold it meanwhile, without results until the work analyses
/// it.  Then the open model is back with its results, also where the work throws.  The grids and GridCapacity stay.
void WithModel(ModelTables model, const std::function<void()>& work);

/// The same for work that gives a value.
template <typename Work>
requires(!std::is_void_v<std::invoke_result_t<Work>>) auto WithModel(ModelTables model, const Work& work) {
  std::optional<std::invoke_result_t<Work>> value;
  WithModel(std::move(model), std::function<void()>([&value, &work] { value.emplace(work()); }));
  return *std::move(value);
}

} // namespace strutwright
