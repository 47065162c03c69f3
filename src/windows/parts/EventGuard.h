#pragma once

#include <functional>
#include <type_traits>
#include <utility>

#include <QObject>

namespace strutwright {

/// Runs the work of an event handler.  A failure that nobody caught is shown in a critical box; work that the user
/// cancelled ends without a word.  Nothing escapes into the event loop.
void Guard(const std::function<void()>& work);

/// Connects a signal to a handler that runs inside the guard, as long as `context` lives.
/// handler: takes the signal's arguments, or none.
template <class Class, class... Args, class Handler>
void OnSignal(const std::type_identity_t<Class>* sender, void (Class::*signal)(Args...), QObject* context,
              Handler handler) {
  QObject::connect(sender, signal, context, [handler = std::move(handler)](Args... args) {
    Guard([&] {
      if constexpr (std::is_invocable_v<const Handler&, Args...>) {
        handler(args...);
      } else {
        handler();
      }
    });
  });
}

} // namespace strutwright
