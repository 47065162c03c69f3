#pragma once

#include "DisplayFixture.h"
#include "modMouseEvents.h"
#include "modMouseModes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <ostream>
#include <string>

namespace strutwright {

inline void PrintTo(const MouseVerdict& verdict, std::ostream* out) {
  *out << "action " << static_cast<int>(verdict.action) << " " << verdict.number << " " << verdict.endNode << " ("
       << verdict.x << ", " << verdict.y << ")";
}

/// A mouse over a triangle 1 (0, 0), 2 (4, 0), 3 (4, 3) with members 1-2, 2-3 and 3-1; the window is 8 m by 6 m from
/// (-2, -5), a pixel 0.01 m.  Positions are world points, y upwards, as they are read on the screen.
class MouseFixture : public DisplayFixture {
 protected:
  MouseFixture() {
    SetTables(Triangle());
    surface.window = {-2, -5, 8, 6};
    PickRadius = 0.25F;
  }

  MouseVerdict Press(float x, float y, MouseButton button = MouseButton::Left) {
    Held(button) = true;
    return MousePress(Event(x, y, button));
  }
  MouseVerdict Release(float x, float y, MouseButton button = MouseButton::Left) {
    Held(button) = false;
    return MouseRelease(Event(x, y, button));
  }
  MouseVerdict Move(float x, float y) { return MouseMove(Event(x, y, MouseButton::None)); }

  /// A press and its release; the verdict of the press.
  MouseVerdict Click(float x, float y, MouseButton button = MouseButton::Left) {
    const MouseVerdict verdict = Press(x, y, button);
    EXPECT_EQ(Release(x, y, button), MouseVerdict{});
    return verdict;
  }

  static MouseVerdict Of(MouseAction action, int number = 0, int endNode = 0) { return {action, number, endNode}; }
  static MouseVerdict At(MouseAction action, float x, float y) { return {action, 0, 0, x, y}; }

  static int ModesOn() {
    return TheMouse.PanMode + DrawNodeMode + DrawMemberMode + TheMouse.SelectMemberMode + TheMouse.SelectNodeMode +
           TheMouse.DeleteMode;
  }

  /// What is on the surface in its inverting pen now: a shape drawn twice is gone.
  Lines InvertedInk() const {
    Lines shown;
    for (const std::string& line : surface.ink) {
      if (!line.ends_with("inverted")) continue;
      const auto same = std::find(shown.begin(), shown.end(), line);
      if (same == shown.end()) {
        shown.push_back(line);
      } else {
        shown.erase(same);
      }
    }
    return shown;
  }

 private:
  bool& Held(MouseButton button) { return Buttons.at(static_cast<std::size_t>(button)); }
  MouseEvent Event(float x, float y, MouseButton button) {
    return {x, -y, button, Held(MouseButton::Left), Held(MouseButton::Middle)};
  }

  std::array<bool, 4> Buttons{};
};

} // namespace strutwright
