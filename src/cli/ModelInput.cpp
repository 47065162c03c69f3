#include "ModelInput.h"

#include "ModelCsv.h"
#include "modColumns.h"
#include "modModelFile.h"

#include <algorithm>
#include <istream>
#include <string_view>

namespace strutwright {

namespace {

constexpr const char* NoModel = "The file is neither a model nor a csv of one";

std::string ReadStream(std::istream& in) {
  std::string bytes(MaxInputBytes + 1, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < ' ' && c != '\t' && c != '\n' && c != '\r' && c != '\f';
}

/// Whether the first that is written in a text is the heading of a table.
bool BeginsWithHeading(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of("\xEF\xBB\xBF\" \t\r\n,"), text.size()));
  return text.starts_with(JointColumns[0].heading) || text.starts_with(MemberColumns[0].heading);
}

std::string BytesOfCsv(const std::string& csv) {
  if (!BeginsWithHeading(csv)) throw FileError(NoModel);
  try {
    TakeModel(ModelFromCsv(csv));
  } catch (const CsvError& error) {
    throw FileError("Line " + std::to_string(error.line) + ": " + error.what());
  }
  return WriteModel();
}

/// What is shorter than its first counts promise may be a damaged model, if its unused first values are zeros.
bool MayBeModel(const std::string& bytes, const StoredModel& model) {
  if (model.presentValues == model.promisedValues) return true;
  const auto unused = model.nodes.InOrder().first(static_cast<std::size_t>(model.nodeCount) + 1);
  return std::all_of(unused.begin(), unused.end(), [](float value) { return value == 0; }) && !bytes.empty();
}

void CheckModel(const std::string& bytes) {
  try {
    if (MayBeModel(bytes, ReadModel(bytes))) return;
  } catch (const FileError&) { // its counts can't be those of a model
  }
  throw FileError(NoModel);
}

} // namespace

std::string ReadInput(const std::string& name, std::istream& in) {
  NativeFileSystem disk;
  std::string bytes = name == StandardStream ? ReadStream(in) : disk.Read(name, 0, MaxInputBytes + 1);
  if (bytes.size() > MaxInputBytes) throw FileError("The file is larger than any model");
  return bytes;
}

bool IsText(const std::string& bytes) { return std::none_of(bytes.begin(), bytes.end(), IsControl); }

std::string ModelBytes(const std::string& input) {
  if (IsText(input)) return BytesOfCsv(input);
  CheckModel(input);
  return input;
}

void InputFileSystem::SetInput(const std::string& name, std::istream& in) {
  Input = name;
  In = &in;
}

std::string InputFileSystem::Read(const std::string& path, std::size_t offset, std::size_t limit) {
  if (In == nullptr || path != Input) return NativeFileSystem::Read(path, offset, limit);
  const std::string bytes = ModelBytes(ReadInput(path, *In));
  return offset < bytes.size() ? bytes.substr(offset, limit) : "";
}

} // namespace strutwright
