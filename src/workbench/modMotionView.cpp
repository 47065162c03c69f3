#include "modMotionView.h"

#include "WorkbenchState.h"
#include "modMechanismDrawing.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <numbers>

namespace strutwright {

int MotionCount() { return static_cast<int>(TheCheck.report.stability.mechanisms.size()); }

void ShowMotion(int number) {
  TheCheck.motion = number >= 1 && number <= MotionCount() ? number : 0;
  HoldMotion();
}

const Mechanism* ShownMechanism() {
  if (TheCheck.motion < 1 || TheCheck.motion > MotionCount()) return nullptr;
  return &TheCheck.report.stability.mechanisms[static_cast<std::size_t>(TheCheck.motion - 1)];
}

void SwingMotion() { TheCheck.motionStep = (TheCheck.motionStep + 1) % StepsOfASwing; }

void HoldMotion() { TheCheck.motionStep = WidestStep; }

void DrawShownMotion(DrawingSurface& surface) {
  const Mechanism* shown = ShownMechanism();
  if (shown == nullptr) return;
  const double phase = 2 * std::numbers::pi * TheCheck.motionStep / StepsOfASwing;
  try {
    DrawMechanism(surface, shown->motion, std::sin(phase));
  } catch (const std::exception&) {
    TheCheck.motion = 0; // the drawing of the model has shown what is wrong with the surface
  }
}

std::string MotionText() {
  if (!TheCheck.failure.empty()) return "The check could not be made";
  const Mechanism* shown = ShownMechanism();
  if (shown == nullptr) return "None: no node can move without stretching a member";
  const int all = TheCheck.report.stability.mechanismCount;
  std::string text = std::to_string(TheCheck.motion) + " of " + std::to_string(MotionCount());
  if (all > MotionCount()) text += " (" + std::to_string(all) + " in all)";
  return text + ": " + shown->sentence + ".";
}

bool IsOffered(const Cure& cure) {
  const Mechanism* shown = ShownMechanism();
  return shown != nullptr && std::any_of(shown->cures.begin(), shown->cures.end(), [&cure](const Cure& each) {
           return each.node == cure.node && each.otherNode == cure.otherNode && each.supportCode == cure.supportCode;
         });
}

} // namespace strutwright
