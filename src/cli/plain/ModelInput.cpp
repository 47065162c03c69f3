#include "ModelInput.h"

#include "DxfDrawing.h"
#include "ImportError.h"
#include "Utf8Path.h"
#include "modImport.h"
#include "modImportFile.h"
#include "modModelFile.h"

#include <algorithm>
#include <filesystem>
#include <istream>
#include <utility>

namespace strutwright {

namespace {

constexpr const char* NoModel = "The file is neither a model nor a csv of one";

std::string ReadStream(std::istream& in) {
  constexpr std::size_t portion = 65536;
  std::string bytes;
  while (in && bytes.size() <= MaxImportBytes) {
    const std::size_t before = bytes.size();
    bytes.resize(before + portion);
    in.read(bytes.data() + before, static_cast<std::streamsize>(portion));
    bytes.resize(before + static_cast<std::size_t>(in.gcount()));
  }
  return bytes;
}

bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < ' ' && c != '\t' && c != '\n' && c != '\r' && c != '\f';
}

/// The bytes of the model that a text makes.
std::string BytesOfText(const std::string& text, const std::string& name, std::vector<std::string>* remarks) {
  if (!CanBeImported(text)) throw FileError(NoModel);
  try {
    ImportedModel imported = ImportText(text, name, {});
    if (remarks != nullptr) *remarks = std::move(imported.remarks);
    TakeModel(std::move(imported.model));
  } catch (const ImportError& error) {
    throw FileError(error.Sentence());
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
  std::string bytes = name == StandardStream ? ReadStream(in) : disk.Read(name, 0, MaxImportBytes + 1);
  if (bytes.size() > MaxImportBytes) throw FileError("The file is larger than any model");
  return bytes;
}

bool IsSameFile(const std::string& one, const std::string& other) {
  std::error_code error;
  return std::filesystem::equivalent(PathOf(one), PathOf(other), error);
}

bool IsText(const std::string& bytes) { return std::none_of(bytes.begin(), bytes.end(), IsControl); }

std::string ModelBytes(const std::string& input, const std::string& name, std::vector<std::string>* remarks) {
  const bool isBinaryDrawing = input.starts_with(BinaryDxf);
  if (isBinaryDrawing || IsText(input)) return BytesOfText(input, name, remarks);
  CheckModel(input);
  return input;
}

void InputFileSystem::SetInput(const std::string& name, std::istream& in) {
  Input = name;
  In = &in;
}

std::string InputFileSystem::Read(const std::string& path, std::size_t offset, std::size_t limit) {
  if (In == nullptr || path != Input) return NativeFileSystem::Read(path, offset, limit);
  const std::string bytes = ModelBytes(ReadInput(path, *In), path, &TheRemarks);
  return offset < bytes.size() ? bytes.substr(offset, limit) : "";
}

} // namespace strutwright
