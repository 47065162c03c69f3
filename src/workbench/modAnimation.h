#pragma once

namespace strutwright {

/// The spinner of the deflection scale, which the animation turns.  Every change of its value steps the scale.
class Spinner {
 public:
  virtual ~Spinner() = default;
  virtual int Value() const = 0;
  virtual void SetValue(int value) = 0;
};

/// Starts the animation of the deflected shape; nothing happens without results.
void StartAnimation(Spinner& spinner);

/// One tick of the clock, every 100 ms.  The spinner swings from 500 up to 551 and back, and ends at 501 with the
/// scale at 100.  Nothing happens while no animation runs or a message is open.
void AnimationTick(Spinner& spinner);

} // namespace strutwright
