#include "ModelSession.h"
#include "PlainCommands.h"
#include "modAnalysis.h"
#include "modDxfWriting.h"
#include "modModelJson.h"
#include "modModelStore.h"
#include "modTables.h"

#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace strutwright {

namespace {

void PrintText(std::ostream& out) {
  PrintTable(GrJoints, out);
  out << '\n';
  PrintTable(GrMembers, out);
}

/// How many times too large the deflected shape is drawn; 0 where there is none.
float ScaleOfShape(const ShowRequest& request) {
  const bool isAnalysed = NodeCount > 0 && AnalyseTruss() == AnalysisEnd::Done;
  return isAnalysed ? request.deflectionScale : 0;
}

void PrintDxf(ModelSession& session, const ShowRequest& request, std::ostream& out) {
  std::vector<std::string> remarks;
  out << ModelToDxf(ScaleOfShape(request), remarks);
  for (const std::string& remark : remarks) session.Report(remark);
}

} // namespace

int ShowModel(const ShowRequest& request, const std::function<std::string()>& tikz, std::istream& in, std::ostream& out,
              std::ostream& err) {
  ModelSession session(request.model, err);
  if (!session.Open(in)) return ExitUsage;
  switch (request.format) {
  case ShowFormat::AsText: PrintText(out); break;
  case ShowFormat::AsCsv: out << ModelToCsv(); break;
  case ShowFormat::AsJson: out << ModelToJson(request.model); break;
  case ShowFormat::AsDxf: PrintDxf(session, request, out); break;
  case ShowFormat::AsTikz: out << tikz(); break;
  }
  return ExitOk;
}

} // namespace strutwright
