#pragma once

#include <set>
#include <string>

namespace strutwright {

/// Names the files that one run makes of its models, no two alike.
class OutputNames {
 public:
  struct Name {
    std::string file;
    bool isNumbered = false; ///< a number was appended, because the name was taken
  };

  /// several: whether there is more than one model.
  explicit OutputNames(bool several) : Several(several) {}

  /// The file that is made of a model: the one that was asked for or, with several models, that with the model's base
  /// name inserted before its extension; "stdin" stands for standard input.  Where an earlier model has taken it,
  /// in letters of either case, "-2" or a higher number follows.
  Name For(const std::string& asked, const std::string& model);

 private:
  bool Several;
  std::set<std::string> Taken;
};

} // namespace strutwright
