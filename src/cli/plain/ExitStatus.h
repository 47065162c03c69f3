#pragma once

namespace strutwright {

/// Exit statuses of strutwright-cli; of several that apply, the largest.
enum ExitStatus : int {
  ExitOk = 0,
  ExitFailed = 1,     ///< at least one model is unstable or could not be analysed
  ExitUsage = 2,      ///< wrong usage, an unreadable or an unwritable file
  ExitMisleading = 3, ///< a checked model has results although it is a mechanism, or has fewer than two digits right
  ExitStopped = 128,  ///< and the number of the signal: what a shell makes of a program that is stopped
};

} // namespace strutwright
