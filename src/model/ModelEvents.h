#pragma once

namespace strutwright {

/// What happens to the model and its results, for whoever shows them.  Nobody has to listen.
class ModelListener {
 public:
  virtual ~ModelListener() = default;

  /// The results no longer belong to the model; AnalysisDone says so already.
  virtual void AnalysisEnded() {}

  /// AnalysisDone may have changed.
  virtual void AnalysisStateChanged() {}

  /// The model in the tables has changed, or what is drawn of it is out of date.
  virtual void ModelChanged() {}

  /// A command on something picked was declined: the pick is dropped, the model is unchanged.
  virtual void PickDropped() {}

  /// The nodes have other numbers.
  virtual void NodesRenumbered() {}

  /// The model and its grids have been emptied for a new one.
  virtual void ModelEmptied() {}

  /// Another model stands in the tables and the grids.
  virtual void ModelReplaced() {}
};

/// The one who listens; nullptr: nobody.  Must live until it is replaced.
void ListenToModel(ModelListener* listener);

/// Where events are reported.
ModelListener& ModelEvents();

/// The results, if there are any, no longer belong to the model.
void EndAnalysis();

} // namespace strutwright
