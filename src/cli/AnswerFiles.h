#pragma once

#include "Picture.h"
#include "PlainCommands.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace strutwright {

/// The files to make of each model; where a name is empty, none of its kind.
struct FilesRequest {
  PictureRequest picture;
  std::string report;  ///< .pdf or .html
  std::string working; ///< the worked solution, .pdf, .html or .tex
};

/// What makes the files of each of some models once it is analysed: no two files get one name.  A failure is
/// reported.
std::function<int(ModelSession&, Result, std::size_t)> MakerOfFiles(const FilesRequest& request,
                                                                    const std::vector<std::string>& models);

} // namespace strutwright
