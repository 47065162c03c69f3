#pragma once

#include "ImportError.h"
#include "modImport.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {

/// Imports texts and keeps what came of it.
class ImportTest : public testing::Test {
 protected:
  void Import(const std::string& text, const DrawingOptions& options = {}) {
    const ImportedModel imported = ImportText(text, "name", options);
    model = imported.model;
    remarks = imported.remarks;
  }

  /// The sentence with which the text is refused; "taken" where it is not.
  static std::string FaultOf(const std::string& text, const std::string& name = "name") {
    try {
      ImportText(text, name, {});
      return "taken";
    } catch (const ImportError& error) {
      return error.Sentence();
    }
  }

  StoredModel model;
  std::vector<std::string> remarks;
};

/// A DXF text: each entity its groups, the code and the value of each on two lines.
class DxfText {
 public:
  DxfText& Line(const std::string& layer, double x1, double y1, double x2, double y2) {
    Entities += "  0\nLINE\n  8\n" + layer + "\n" + Place(10, x1, y1) + Place(11, x2, y2);
    return *this;
  }
  DxfText& Point(const std::string& layer, double x, double y, const std::string& kind = "POINT") {
    Entities += "  0\n" + kind + "\n  8\n" + layer + "\n" + Place(10, x, y);
    return *this;
  }
  DxfText& Add(const std::string& groups) {
    Entities += groups;
    return *this;
  }
  DxfText& Unit(int unit) {
    Header = "  9\n$INSUNITS\n 70\n" + std::to_string(unit) + "\n";
    return *this;
  }
  operator std::string() const {
    return "  0\nSECTION\n  2\nHEADER\n" + Header + "  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n" + Entities +
           "  0\nENDSEC\n  0\nEOF\n";
  }

 private:
  static std::string Place(int code, double x, double y) {
    return std::to_string(code) + "\n" + std::to_string(x) + "\n" + std::to_string(code + 10) + "\n" +
           std::to_string(y) + "\n";
  }

  std::string Header = "  9\n$INSUNITS\n 70\n6\n";
  std::string Entities;
};

} // namespace strutwright
