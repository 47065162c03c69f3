#include "FileSystem.h"
#include "ImportError.h"
#include "ModelInput.h"
#include "ModelSession.h"
#include "PlainCommands.h"
#include "modFileCommands.h"
#include "modImport.h"
#include "modModelFile.h"

#include <istream>
#include <ostream>
#include <string>
#include <utility>

namespace strutwright {

namespace {

/// A bad line is named as compilers name one, which editors can jump to.
void ReportBadInput(const MakeRequest& request, const ImportError& error, std::ostream& err) {
  err << ValidText(request.input);
  if (error.line > 0) err << ":" << error.line;
  err << ": " << ValidText(error.what()) << '\n';
}

/// E and A by layer, from the file that was named, if one was.
void TakeLayerTable(MakeRequest& request, std::istream& in) {
  if (request.layers.empty()) return;
  try {
    request.drawing.layers = ReadLayerTable(ReadInput(request.layers, in));
  } catch (const ImportError& error) {
    throw FileError(request.layers + ": " + error.Sentence());
  } catch (const FileError& error) {
    throw FileError(request.layers + ": " + error.what());
  }
}

/// A drawing or a table is not to be lost to the model that is made of it.
void CheckOutput(const MakeRequest& request) {
  if (IsSameFile(request.output, request.input) || IsSameFile(request.output, request.layers)) {
    throw FileError("The model would take the place of what it is made from: choose another name for it");
  }
}

/// Makes the model that the input holds the open one; false where it holds none, which has been reported by then.
bool TakeInput(MakeRequest request, std::istream& in, std::ostream& err) {
  ModelSession session(request.input, err);
  try {
    TakeLayerTable(request, in);
    const std::string bytes = ReadInput(request.input, in);
    if (!IsText(bytes)) {
      TakeModel(ReadModel(ModelBytes(bytes, request.input)));
      return true;
    }
    CheckOutput(request);
    ImportedModel imported = ImportText(bytes, request.input, request.drawing);
    TakeModel(std::move(imported.model));
    for (const std::string& remark : imported.remarks) session.Report(remark);
    return true;
  } catch (const ImportError& error) {
    ReportBadInput(request, error, err);
  } catch (const FileError& error) {
    session.Report(error.what());
  }
  return false;
}

} // namespace

int MakeModel(const MakeRequest& request, std::istream& in, std::ostream& out, std::ostream& err) {
  if (!TakeInput(request, in, err)) return ExitUsage;
  const std::string model = WriteModel();
  ModelSession session(request.output, err);
  if (request.output == StandardStream) {
    out << model;
    return ExitOk;
  }
  try {
    TakeModel(ReadModel(model));
    SaveModelFile(request.output);
  } catch (const FileError& error) {
    ReportSaveFailure(request.output, error.what());
    return ExitUsage;
  }
  return ExitOk;
}

} // namespace strutwright
