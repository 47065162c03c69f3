#pragma once

#include "FileSystem.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace strutwright {

/// Passes every step on to a real file system, after asking `before` about it; that may throw or end the process.
class FaultyFileSystem : public FileSystem {
 public:
  explicit FaultyFileSystem(FileSystem& real) : Real(real) {}

  /// Called with the step's name and its number, from 1.
  std::function<void(const std::string& step, int number)> before;

  /// The steps so far.
  std::vector<std::string> steps;

  FileKind Kind(const std::string& path) override { return Step("Kind"), Real.Kind(path); }
  std::string FollowLinks(const std::string& path) override { return Step("FollowLinks"), Real.FollowLinks(path); }
  std::vector<std::string> Names(const std::string& folder) override { return Step("Names"), Real.Names(folder); }
  std::string Read(const std::string& path, std::size_t offset, std::size_t limit) override {
    return Step("Read"), Real.Read(path, offset, limit);
  }
  void CheckWritable(const std::string& path) override { Step("CheckWritable"), Real.CheckWritable(path); }
  std::string CreateBeside(const std::string& path) override { return Step("CreateBeside"), Real.CreateBeside(path); }
  void Create(const std::string& path) override { Step("Create"), Real.Create(path); }
  void Write(const std::string& path, const std::string& bytes) override { Step("Write"), Real.Write(path, bytes); }
  void Resize(const std::string& path, std::size_t size) override { Step("Resize"), Real.Resize(path, size); }
  bool HasOtherNames(const std::string& path) override { return Step("HasOtherNames"), Real.HasOtherNames(path); }
  void CopyMode(const std::string& model, const std::string& path) override {
    Step("CopyMode"), Real.CopyMode(model, path);
  }
  void Flush(const std::string& path) override { Step("Flush"), Real.Flush(path); }
  void Replace(const std::string& from, const std::string& to) override { Step("Replace"), Real.Replace(from, to); }
  void Remove(const std::string& path) override { Step("Remove"), Real.Remove(path); }
  std::unique_ptr<FileLock> Lock(const std::string& path) override { return Step("Lock"), Real.Lock(path); }
  std::unique_ptr<FileLock> TryLock(const std::string& path) override { return Step("TryLock"), Real.TryLock(path); }
  std::int64_t ModifiedAt(const std::string& path) override { return Step("ModifiedAt"), Real.ModifiedAt(path); }
  bool TakesFiles(const std::string& path) override { return Step("TakesFiles"), Real.TakesFiles(path); }
  void CreateFolder(const std::string& path) override { Step("CreateFolder"), Real.CreateFolder(path); }
  void RemoveFolder(const std::string& path) override { Step("RemoveFolder"), Real.RemoveFolder(path); }

 private:
  void Step(const std::string& name) {
    steps.push_back(name);
    if (before) before(name, static_cast<int>(steps.size()));
  }

  FileSystem& Real;
};

} // namespace strutwright
