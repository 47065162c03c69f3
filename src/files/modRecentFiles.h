#pragma once

#include <string>

namespace strutwright {

// The list of recently opened files: in the settings store under "Recent Files", key "1" the most recent, and in the
// File menus.  Its greatest length is an option.  A program without a settings store has no such list.

/// Takes the list from the store when the program starts.  Where no file was ever opened, this is a first run: the user
/// is greeted, and the list starts empty with three places.
void startUpList();

/// Puts a path at the top of the list.  A path that the menu has already is moved in the menu alone: the store keeps
/// its order on purpose, and with it the next start.
void addRecentFile(const std::string& path);

/// Writes the shown entries anew from the store.
void refreshCaptions();

/// Takes the greatest length from the options dialog's txtMaxFiles and drops the entries beyond it, with their keys.
/// A text that is no number shows "Please input a number in future, ok"; that and what is not within 1..20 gives 4.
void applyMaxFiles();

/// A path as the menu shows it: whole below 26 characters; otherwise "..." and as many of its last components as fit
/// into 26 characters with their separator, at least one.
std::string ShownPath(const std::string& path);

} // namespace strutwright
