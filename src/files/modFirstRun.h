#pragma once

namespace strutwright {

/// Greets the user of a program that has not opened a file yet.
void firstRun();

} // namespace strutwright
