#pragma once

#include "CheckFixture.h"
#include "modFindings.h"
#include "modOddPlaces.h"

#include <string>
#include <vector>

namespace strutwright {

/// Short ways to what is odd about a model.
class FindingsFixture : public CheckFixture {
 protected:
  static std::vector<Finding> Findings(const ModelData& model) { return FindOddities(TrussOf(model)); }

  static std::vector<std::string> Texts(const ModelData& model) {
    std::vector<std::string> texts;
    for (const Finding& finding : Findings(model)) texts.push_back(finding.text);
    return texts;
  }

  static std::vector<std::string> TextsOf(FindingKind kind, const ModelData& model) {
    std::vector<std::string> texts;
    for (const Finding& finding : Findings(model)) {
      if (finding.kind == kind) texts.push_back(finding.text);
    }
    return texts;
  }

  /// The triangle with one member more.
  static ModelData With(const MemberData& member) {
    ModelData model = Triangle();
    model.members.push_back(member);
    return model;
  }
};

} // namespace strutwright
