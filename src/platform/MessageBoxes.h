#pragma once

#include <string>

namespace strutwright {

/// The title of every message box.
inline constexpr const char* ProgramTitle = "Strutwright";

enum class MessageIcon { None, Information, Question, Exclamation, Critical };

/// One modal box.  Lines of `text` are separated by "\n".
struct Message {
  MessageIcon icon = MessageIcon::None;
  std::string title = ProgramTitle;
  std::string text;

  bool operator==(const Message&) const = default;
};

/// The desktop's modal message boxes.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// Shows the box and returns when the user has closed it.
  virtual void Show(const Message& message) = 0;

  /// Shows the box with the buttons Yes and No; true for Yes only.
  virtual bool Ask(const Message& question) = 0;
};

/// The icon's name in lower case: "none", "information", "question", "exclamation", "critical".
std::string IconName(MessageIcon icon);

} // namespace strutwright
