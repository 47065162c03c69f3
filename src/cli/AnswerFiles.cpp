#include "AnswerFiles.h"

#include "FileSystem.h"
#include "ModelSession.h"
#include "OutputNames.h"
#include "modPlaces.h"
#include "modReportFiles.h"
#include "modWorkedFiles.h"
#include "modWorkedTruss.h"

#include <algorithm>

namespace strutwright {

namespace {

/// The names of the files that are made of one model.
struct MadeFiles {
  OutputNames::Name picture;
  OutputNames::Name report;
  OutputNames::Name working;
};

/// Those of each model, in their order.
std::vector<MadeFiles> NamesOfMadeFiles(const FilesRequest& request, const std::vector<std::string>& models) {
  OutputNames names(models.size() > 1);
  std::vector<MadeFiles> made;
  for (const std::string& model : models) {
    MadeFiles files;
    if (!request.picture.file.empty()) files.picture = names.For(request.picture.file, model);
    if (!request.report.empty()) files.report = names.For(request.report, model);
    if (!request.working.empty()) files.working = names.For(request.working, model);
    made.push_back(files);
  }
  return made;
}

/// The name of what is made of the session's model.  It says so where another model has taken the one to expect.
std::string NameFor(ModelSession& session, const std::string& what, const OutputNames::Name& name) {
  if (name.isNumbered) session.Report("The " + what + " is " + name.file + ", because another model's has its name");
  return name.file;
}

/// The status of making the picture, if there is something to make it of.  A failure has been reported.
int Depict(ModelSession& session, Result result, const PictureRequest& picture, const OutputNames::Name& name) {
  if (picture.file.empty() || result == Result::Unreadable) return ExitOk;
  const std::string file = NameFor(session, "picture", name);
  try {
    MakePicture(picture, file, result == Result::Ok);
  } catch (const FileError& error) {
    session.Report("Error while saving file " + file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

/// The same of writing the report.
int Document(ModelSession& session, Result result, const FilesRequest& request, const OutputNames::Name& name) {
  if (request.report.empty() || result == Result::Unreadable) return ExitOk;
  if (result != Result::Ok) {
    session.Report("No report is written, because there are no results");
    return ExitOk;
  }
  const std::string file = NameFor(session, "report", name);
  try {
    PreparePages();
    WriteReport(MakeReport(ValidText(LastComponent(session.File())), request.picture.style), file);
  } catch (const FileError& error) {
    session.Report("Error while saving file " + file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

/// The same of writing the worked solution, which says itself what keeps a truss from being solved.
int WriteWorking(ModelSession& session, Result result, const FilesRequest& request, const OutputNames::Name& name) {
  if (request.working.empty() || result == Result::Unreadable) return ExitOk;
  const std::string file = NameFor(session, "worked solution", name);
  try {
    PreparePages();
    WriteWorked(WorkedTruss(ValidText(LastComponent(session.File()))), file);
  } catch (const FileError& error) {
    session.Report("Error while saving file " + file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

} // namespace

std::function<int(ModelSession&, Result, std::size_t)> MakerOfFiles(const FilesRequest& request,
                                                                    const std::vector<std::string>& models) {
  return [request, names = NamesOfMadeFiles(request, models)](ModelSession& session, Result result, std::size_t k) {
    return std::max({Depict(session, result, request.picture, names[k].picture),
                     Document(session, result, request, names[k].report),
                     WriteWorking(session, result, request, names[k].working)});
  };
}

} // namespace strutwright
