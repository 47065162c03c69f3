#pragma once

namespace strutwright {

/// Registers the type of model files with the desktop and greets the user, who has not opened a file yet.
void firstRun();

} // namespace strutwright
