#include "modClassSet.h"

#include "ClassFault.h"
#include "ClassTexts.h"
#include "LongWork.h"
#include "SeededDraws.h"
#include "modAnalysis.h"
#include "modCheckAnswer.h"
#include "modOtherModel.h"
#include "modTables.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <set>
#include <utility>

namespace strutwright {

namespace {

/// So many combinations of values are shuffled at once; of more, single ones are drawn.
constexpr std::uint64_t MostShuffled = 100'000;
constexpr std::size_t TriesForEach = 50; // draws for each student where there are more
constexpr std::size_t LeastTries = 2000;

/// All combinations of the varied values, in an order that is drawn, each once.
class Combinations {
 public:
  Combinations(const ClassPlan& plan) : Plan(plan), Draws(plan.seed) {
    for (const Variation& variation : plan.variations) Count = Multiplied(Count, variation.Count());
    if (Count <= MostShuffled) Order = Draws.Shuffled(static_cast<std::size_t>(Count));
    TriesLeft = std::max(LeastTries, TriesForEach * plan.students.size());
  }

  /// The next combination; nothing when there is none that was not given.
  std::optional<std::vector<double>> Next() {
    if (Count <= MostShuffled) {
      if (Given == Order.size()) return std::nullopt;
      return ValuesOf(Order[Given++]);
    }
    while (TriesLeft > 0) {
      --TriesLeft;
      const std::uint64_t number = Draws.Below(Count);
      if (Drawn.insert(number).second) return ValuesOf(number);
    }
    return std::nullopt;
  }

 private:
  static std::uint64_t Multiplied(std::uint64_t count, std::uint64_t factor) {
    constexpr std::uint64_t Most = std::uint64_t{1} << 60;
    return count > Most / factor ? Most : count * factor;
  }

  std::vector<double> ValuesOf(std::uint64_t number) const {
    std::vector<double> values;
    for (const Variation& variation : Plan.variations) {
      values.push_back(variation.ValueAt(number % variation.Count()));
      number /= variation.Count();
    }
    return values;
  }

  const ClassPlan& Plan;
  SeededDraws Draws;
  std::uint64_t Count = 1;
  std::vector<std::uint64_t> Order;
  std::size_t Given = 0;
  std::set<std::uint64_t> Drawn;
  std::size_t TriesLeft = 0;
};

bool SomeAnswerCounts(const std::vector<KeyedQuestion>& questions) {
  bool anyMeasured = false;
  for (const KeyedQuestion& each : questions) {
    if (!IsMeasured(each.question)) continue;
    anyMeasured = true;
    if (each.value != 0) return true;
  }
  return !anyMeasured;
}

/// Whether a student could copy all of a neighbour's answers.  Where no number is asked for, that can't be helped.
bool HaveSameAnswers(const ClassVariant& one, const ClassVariant& other) {
  if (one.questions.size() != other.questions.size()) return false;
  bool anyMeasured = false;
  for (std::size_t q = 0; q < one.questions.size(); ++q) {
    const KeyedQuestion& mine = one.questions[q];
    if (mine.question != other.questions[q].question || mine.answer != other.questions[q].answer) return false;
    anyMeasured = anyMeasured || IsMeasured(mine.question);
  }
  return anyMeasured;
}

/// Makes variants one after the other, and keeps what it learns on the way.
class VariantMaker {
 public:
  explicit VariantMaker(const ClassPlan& plan) : Plan(plan), Left(plan) {}

  ClassVariant VariantFor(const std::string& student) {
    for (auto each = Deferred.begin(); each != Deferred.end(); ++each) {
      if (Previous && HaveSameAnswers(*each, *Previous)) continue;
      ClassVariant variant = std::move(*each);
      Deferred.erase(each);
      return Given(std::move(variant), student);
    }
    while (std::optional<ClassVariant> variant = NextUsable()) {
      if (!Previous || !HaveSameAnswers(*variant, *Previous)) return Given(std::move(*variant), student);
      Deferred.push_back(std::move(*variant));
    }
    throw ClassFault(TooFew());
  }

 private:
  ClassVariant Given(ClassVariant variant, const std::string& student) {
    variant.student = student;
    Previous = variant;
    ++GivenCount;
    return variant;
  }

  std::optional<ClassVariant> NextUsable() {
    while (const auto values = Left.Next()) {
      VariedModel varied = MakeVariedModel(Plan.source, Plan.variations, *values);
      if (!varied.model) {
        KeepReason(varied.fault);
        continue;
      }
      if (!Models.Insert(varied.model->nodes, varied.model->members)) continue;
      ClassVariant variant{"", *varied.model, VariedText(Plan.variations, *values), {}};
      if (WithModel({variant.model.nodes, variant.model.members}, [&] { return IsUsable(variant); })) return variant;
    }
    return std::nullopt;
  }

  /// Analyses and judges the variant, whose model is in the tables, and answers its questions.
  bool IsUsable(ClassVariant& variant) {
    if (AnalyseTruss() != AnalysisEnd::Done) return KeepReason("the truss is a mechanism, or can't be analysed");
    const CheckReport check = CheckAnswer(AnalysisOutcome::Done);
    if (!check.stability.Stable()) return KeepReason(MechanismReason(check));
    if (!check.accuracy || check.accuracy->digits < DigitsOfVariant) {
      return KeepReason("rounding leaves fewer than four digits that are sure");
    }
    try {
      variant.questions = Answered(QuestionsAbout(variant.model, Plan.asks), check, Plan.percent);
    } catch (const ClassFault& fault) {
      return KeepReason(InsideSentence(fault.what()));
    }
    return SomeAnswerCounts(variant.questions) || KeepReason("all values that are asked for are zero");
  }

  static std::string InsideSentence(std::string sentence) {
    sentence.replace(0, 1, InSmallLetters(sentence.substr(0, 1)));
    return sentence;
  }

  static std::string MechanismReason(const CheckReport& check) {
    const auto& mechanisms = check.stability.mechanisms;
    return "the truss is a mechanism" + (mechanisms.empty() ? "" : ": " + mechanisms.front().sentence);
  }

  /// Keeps why a variant is not usable; false.
  bool KeepReason(const std::string& reason) {
    if (Reason.empty()) Reason = reason;
    return false;
  }

  std::string TooFew() const {
    const std::size_t usable = GivenCount + Deferred.size();
    const std::string students = CountOf(Plan.students.size(), "student");
    if (usable == 0) return "No variant can be used, because " + Reason;
    if (!Deferred.empty()) {
      return "The answers of neighbours would be the same, for " + CountOf(usable, "variant") + " and " + students +
             ": vary something that the asked values depend on";
    }
    return "There " +
           (usable == 1 ? std::string("is only 1 usable variant")
                        : "are only " + std::to_string(usable) + " usable variants") +
           " for " + students + ": widen the ranges or make their steps smaller";
  }

  /// The models that were made, to find those that are the same.
  class KnownModels {
   public:
    /// Whether the model is new.
    bool Insert(const FieldTable& nodes, const FieldTable& members) {
      std::vector<float> values(nodes.InOrder().begin(), nodes.InOrder().end());
      values.insert(values.end(), members.InOrder().begin(), members.InOrder().end());
      return Known.insert(std::move(values)).second;
    }

   private:
    std::set<std::vector<float>> Known;
  };

  const ClassPlan& Plan;
  Combinations Left;
  KnownModels Models;
  std::deque<ClassVariant> Deferred; ///< usable, with the answers of the student before
  std::optional<ClassVariant> Previous;
  std::size_t GivenCount = 0;
  std::string Reason; ///< why the first variant that is not usable is not
};

/// What the model itself lacks is said of the model, not of its variants.
void CheckSource(const ClassPlan& plan) {
  if (plan.students.empty()) throw ClassFault("There is no student to make a problem for");
  const bool ofFamily = plan.source.family != nullptr;
  if (!ofFamily && plan.source.model.nodeCount == 0) throw ClassFault("The model has no nodes: build a truss first");
  CheckVariations(plan.source, plan.variations);
  if (ofFamily) return;
  const StoredModel& model = plan.source.model;
  const CheckReport check = WithModel({model.nodes, model.members}, [] { return CheckAnswer(AnalysisOutcome::None); });
  if (!check.stability.Stable()) {
    throw ClassFault(check.verdict +
                     (check.stability.mechanisms.empty() ? "" : ": " + check.stability.mechanisms.front().sentence));
  }
  QuestionsAbout(model, plan.asks);
}

} // namespace

std::vector<ClassVariant> MakeVariants(const ClassPlan& plan) {
  CheckSource(plan);
  LongWork work("Making the variants");
  VariantMaker maker(plan);
  std::vector<ClassVariant> variants;
  for (const std::string& student : plan.students) {
    variants.push_back(maker.VariantFor(student));
    work.Done(static_cast<double>(variants.size()) / static_cast<double>(plan.students.size()));
  }
  return variants;
}

} // namespace strutwright
