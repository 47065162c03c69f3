#pragma once

#include "MessageBoxes.h"
#include "ModelInput.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace strutwright {

/// One model in an otherwise fresh program, without a window: what would be shown in a box is kept, and printed to
/// `err` as a line that begins with the file's name.
/// Only one session can exist at a time, because the model and its results are process-wide.
class ModelSession : private MessageBoxes {
 public:
  ModelSession(std::string file, std::ostream& err);
  ~ModelSession() override;
  ModelSession(const ModelSession&) = delete;
  ModelSession& operator=(const ModelSession&) = delete;

  /// Opens the file as the window does, or as the model that it makes where it is a csv; "-" is `in`.
  /// Returns whether there is a model; where there is none, the reason has been reported.
  bool Open(std::istream& in);

  /// Writes a line about the file to `err` that no box would show.
  void Report(const std::string& text);

  const std::string& File() const { return FileName; }

  /// The boxes shown so far.
  const std::vector<Message>& Shown() const { return Messages; }

  /// Shows what nobody caught, as the guard of the window does.
  void ShowUncaught(const std::string& description);

 private:
  void Show(const Message& message) override;
  bool Ask(const Message& question) override;

  std::string FileName;
  std::ostream& Err;
  InputFileSystem Disk;
  std::vector<Message> Messages;
  bool Opening = false; ///< what is shown is reported when it is known what came of it
};

} // namespace strutwright
