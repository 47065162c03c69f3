#pragma once

#include "AnalysisState.h"
#include "ClassFault.h"
#include "FakePlatform.h"
#include "ModelBuilder.h"
#include "modClassSet.h"
#include "modModelStore.h"

#include <functional>
#include <string>

#include <gmock/gmock.h>

namespace strutwright {

/// Short ways to a class set.
class ClassTest : public PlatformTest {
 protected:
  ClassTest() {
    ResetModel();
    TheAnalysis = AnalysisState{};
  }

  /// The model as a source of variants; the tables keep it.
  static ClassSource SourceOf(const ModelData& model) {
    SetTables(model);
    return {"bridge.stw", ModelInTables(), nullptr, {}};
  }

  static ClassSource SourceOf(const std::string& family) {
    const TrussFamily* found = FamilyNamed(family);
    return {std::string(found->title), {}, found, StandardTexts(*found)};
  }

  static ClassPlan PlanFor(const ClassSource& source, int students, const std::vector<std::string>& vary,
                           const std::vector<std::string>& ask) {
    ClassPlan plan;
    plan.source = source;
    for (const std::string& text : vary) plan.variations.push_back(ReadVariation(text));
    for (const std::string& text : ask) plan.asks.push_back(ReadAsk(text));
    for (int s = 1; s <= students; ++s) plan.students.push_back("s" + std::to_string(s));
    plan.seed = 7;
    return plan;
  }

  /// Four bays of a Pratt truss that differ in span, height and load.
  static ClassPlan PrattPlan(int students) {
    return PlanFor(SourceOf(PrattTruss(10)), students, {"span:12..20:1", "height:2..4:0.5", "load:10..40:5"},
                   {"forces:5,6", "reactions", "displacement:4y", "zero-members", "determinacy", "k:2"});
  }

  /// What is said where something can't be done; empty where it can.
  static std::string FaultOfDoing(const std::function<void()>& action) {
    try {
      action();
    } catch (const ClassFault& fault) {
      return fault.what();
    }
    return "";
  }
};

} // namespace strutwright
