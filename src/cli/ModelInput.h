#pragma once

#include "NativeFileSystem.h"

#include <cstddef>
#include <iosfwd>
#include <string>

namespace strutwright {

/// The name of standard input and standard output.
inline constexpr const char* StandardStream = "-";

/// More than any model needs, and little enough to be read at once.
inline constexpr std::size_t MaxInputBytes = std::size_t{64} << 20;

/// The bytes of a file, or of `in` where the name is "-".  Throws FileError, also where there are too many.
std::string ReadInput(const std::string& name, std::istream& in);

/// Whether the bytes are a text, which a model never is: its tables begin with zeros.
bool IsText(const std::string& bytes);

/// The bytes of the model that an input holds: a model as it is, the csv of one as the model that it makes.
/// Throws FileError where it is neither, or names the line of the csv that is wrong.
/// The tables hold the csv's model afterwards.
std::string ModelBytes(const std::string& input);

/// Files as they are, but for one: the input, a model or its csv, reads as a model.
class InputFileSystem : public NativeFileSystem {
 public:
  /// in: what is read where the name is "-"; it must outlive the last Read.
  void SetInput(const std::string& name, std::istream& in);

  std::string Read(const std::string& path, std::size_t offset, std::size_t limit) override;

 private:
  std::string Input;
  std::istream* In = nullptr;
};

} // namespace strutwright
