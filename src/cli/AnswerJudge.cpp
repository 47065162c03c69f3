#include "AnswerJudge.h"

#include "ModelSession.h"
#include "modCheckText.h"

#include <cmath>
#include <exception>
#include <limits>
#include <string>

namespace strutwright {

namespace {

/// Fewest digits that a result may have before a script is warned of it.
constexpr int FewestDigits = 2;

Json JsonResidual(const std::optional<BalanceReport>& balance) {
  constexpr double largest = std::numeric_limits<float>::max();
  if (!balance || !(std::abs(balance->nodeResidual) <= largest)) return nullptr;
  return JsonNumber(static_cast<float>(balance->nodeResidual));
}

Json JsonCheck(const CheckReport& check) {
  const bool stable = check.stability.Stable();
  const Json zeroMembers = JsonListOf(check.zeroBars, [](const ZeroBar& bar) { return bar.member; });
  return {{"stable", stable},
          {"mechanisms", check.stability.mechanismCount},
          {"indeterminacy", check.stability.indeterminacy},
          {"digits", check.accuracy ? Json(check.accuracy->digits) : Json()},
          {"residual", JsonResidual(check.balance)},
          {"zero_members", stable ? zeroMembers : Json()},
          {"verdict", check.verdict},
          {"motions", JsonListOf(check.stability.mechanisms, [](const Mechanism& m) { return m.sentence; })},
          {"oddities", JsonListOf(check.findings, [](const Finding& f) { return f.text; })}};
}

Judgement JudgementOf(const CheckReport& check, Result result) {
  const bool isMisleading = !check.accuracy || check.accuracy->digits < FewestDigits;
  return {CheckText(check) + "\n", JsonCheck(check), result == Result::Ok && isMisleading ? ExitMisleading : ExitOk};
}

} // namespace

std::optional<Judgement> JudgeAnswer(ModelSession& session, Result result, const AnswerJudge& judge) {
  if (result == Result::Unreadable) return std::nullopt;
  if (result == Result::Failed) return Judgement{"Not checked, since the model could not be analysed\n\n"};
  try {
    return JudgementOf(judge(LastOutcome()), result);
  } catch (const std::exception& failure) {
    const std::string reason = failure.what();
    session.Report("The answer could not be checked\n" + reason);
    return Judgement{"The answer could not be checked: " + reason + "\n\n", Json(), ExitFailed};
  }
}

} // namespace strutwright
