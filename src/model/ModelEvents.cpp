#include "ModelEvents.h"

#include "modModelStore.h"

namespace strutwright {

namespace {

ModelListener Nobody;
ModelListener* Listening = &Nobody;

} // namespace

void ListenToModel(ModelListener* listener) { Listening = listener == nullptr ? &Nobody : listener; }

ModelListener& ModelEvents() { return *Listening; }

void EndAnalysis() {
  AnalysisDone = FlagFalse;
  ModelEvents().AnalysisEnded();
}

} // namespace strutwright
