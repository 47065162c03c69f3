#pragma once

namespace strutwright {

/// What happens to the truss display, for whoever shows it.  Nobody has to listen.
class ViewListener {
 public:
  virtual ~ViewListener() = default;

  /// What the display is to show has changed, and its drawing is out of date.
  virtual void ViewChanged() {}
};

/// The one who listens; nullptr: nobody.  Must live until it is replaced.
void ListenToView(ViewListener* listener);

/// Where events are reported.
ViewListener& ViewEvents();

} // namespace strutwright
