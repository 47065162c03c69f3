#pragma once

#include <vector>

namespace strutwright {

/// What a user had entered at some moment, to find out later whether the model is still the same.  The results that an
/// analysis writes beside it are no part of it.
class ModelAsEntered {
 public:
  /// No model at all, which none is the same as.
  ModelAsEntered() = default;

  /// The model in the tables.
  static ModelAsEntered Now();

  /// Whether the tables hold this model.  Copies nothing: it is asked at every drawing.
  bool IsCurrent() const;

 private:
  std::vector<float> Nodes;   ///< all of NodeTable
  std::vector<float> Members; ///< of MemberTable the fields that a user enters
};

} // namespace strutwright
