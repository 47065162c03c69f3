#pragma once

#include "NativeFileSystem.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace strutwright {

/// The name of standard input and standard output.
inline constexpr const char* StandardStream = "-";

/// The bytes of a file, or of `in` where the name is "-".  Throws FileError, also where there are more than
/// MaxImportBytes.
std::string ReadInput(const std::string& name, std::istream& in);

/// Whether two names are of one file that exists.
bool IsSameFile(const std::string& one, const std::string& other);

/// Whether the bytes are a text, which a model never is: its tables begin with zeros.
bool IsText(const std::string& bytes);

/// The bytes of the model that an input holds: a model as it is, a table, JSON or DXF as the model that it makes.
/// remarks: where given, takes what was left out or assumed.
/// Throws FileError where it is none of them, or names the line that is wrong.
/// The tables hold the text's model afterwards.
std::string ModelBytes(const std::string& input, const std::string& name, std::vector<std::string>* remarks = nullptr);

/// Files as they are, but for one: the input, a model or a text of one, reads as a model.
class InputFileSystem : public NativeFileSystem {
 public:
  /// in: what is read where the name is "-"; it must outlive the last Read.
  void SetInput(const std::string& name, std::istream& in);

  std::string Read(const std::string& path, std::size_t offset, std::size_t limit) override;

  /// What was left out or assumed when the input was read.
  const std::vector<std::string>& Remarks() const { return TheRemarks; }

 private:
  std::string Input;
  std::vector<std::string> TheRemarks;
  std::istream* In = nullptr;
};

} // namespace strutwright
