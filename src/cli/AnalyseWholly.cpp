#include "Commands.h"
#include "ModelSession.h"

namespace strutwright {

int AnalyseWholly(const WholeAnalyseRequest& request, std::istream& in, std::ostream& out, std::ostream& err,
                  const AnswerJudge& judge) {
  AnalysisExtras extras;
  if (request.check) {
    extras.judge = [&judge](ModelSession& session, Result result) { return JudgeAnswer(session, result, judge); };
  }
  extras.makeFiles = MakerOfFiles(request.files, request.plain.models);
  return AnalyseModels(request.plain, extras, in, out, err);
}

} // namespace strutwright
