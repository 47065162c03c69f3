#include "modTrussFamilies.h"

#include "Ensure.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace strutwright {

namespace {

constexpr std::array<SupportChoice, 3> GirderSupports{{
    {SupportKind::PinRoller, "pin-roller", "Pin at the left, roller at the right"},
    {SupportKind::RollerPin, "roller-pin", "Roller at the left, pin at the right"},
    {SupportKind::PinPin, "pin-pin", "Pins at both ends"},
}};

constexpr std::array<SupportChoice, 3> WallSupports{{
    {SupportKind::PinPin, "pin-pin", "Both nodes pinned to the wall"},
    {SupportKind::PinRoller, "pin-roller", "Pin below, roller above"},
    {SupportKind::RollerPin, "roller-pin", "Roller below, pin above"},
}};

constexpr std::array<SupportChoice, 3> BaseSupports{{
    {SupportKind::PinPin, "pin-pin", "Both feet pinned to the ground"},
    {SupportKind::PinRoller, "pin-roller", "Pin at the left, roller at the right"},
    {SupportKind::RollerPin, "roller-pin", "Roller at the left, pin at the right"},
}};

TrussFamily Girder(std::string_view name, std::string_view title, TrussShape (*shape)(const TrussSize&)) {
  return {name, title, 24, 3, 8, 2, 2, false, true, false, GirderSupports, shape};
}

std::array<TrussFamily, 9> AllFamilies() {
  TrussFamily warren = Girder("warren", "Warren truss", &WarrenShape);
  warren.hasVerticals = false;
  TrussFamily k = Girder("k", "K truss", &KShape);
  k.height = 6;
  k.leastBays = 4;
  TrussFamily bowstring = Girder("bowstring", "Bowstring arch", &BowstringShape);
  bowstring.height = 5;
  return {Girder("pratt", "Pratt truss", &PrattShape),
          Girder("howe", "Howe truss", &HoweShape),
          warren,
          Girder("warren-verticals", "Warren truss with verticals", &WarrenVerticalsShape),
          k,
          TrussFamily{"fink", "Fink roof", 12, 3, 8, 4, 2, true, true, false, GirderSupports, &FinkShape},
          bowstring,
          TrussFamily{"cantilever", "Cantilever", 12, 3, 4, 1, 2, false, true, false, WallSupports, &CantileverShape},
          TrussFamily{"tower", "Tower", 4, 20, 8, 1, 20, false, true, true, BaseSupports, &TowerShape}};
}

float Standard(const TrussFamily& family, TrussField field) {
  switch (field) {
  case TrussField::Span: return family.span;
  case TrussField::Height: return family.height;
  case TrussField::Bays: return family.bays;
  default: return Description(field).standard;
  }
}

float ValueOf(const TrussTexts& texts, TrussField field) {
  const std::optional<float> value = NumericValue(texts[field]);
  Ensure(value.has_value(), "the description of a truss has been checked");
  return *value;
}

bool IsIn(float value, float least, float most) { return value >= least && value <= most; }

std::string Range(float least, float most) { return NumberText(least) + " to " + NumberText(most); }

std::string NumberReason(const FieldDescription& field, const std::string& text) {
  const std::optional<float> value = NumericValue(text);
  if (value && IsIn(*value, field.least, field.most)) return "";
  return "must be a number from " + Range(field.least, field.most) + " " + std::string(field.unit);
}

/// A limit as it is printed, so that the number in the message is one that is taken.
float Printed(float limit) { return NumericValue(NumberText(limit)).value_or(limit); }

/// Only for a span and a height that are numbers within their own limits.
std::string SteepnessReason(const TrussFamily& family, const TrussTexts& texts) {
  const float span = ValueOf(texts, TrussField::Span);
  const float least = Printed(std::max(span * MinSteepness, Description(TrussField::Height).least));
  const float most = Printed(std::min(span * family.mostSteepness, Description(TrussField::Height).most));
  if (IsIn(ValueOf(texts, TrussField::Height), least, most)) return "";
  return "must be a number from " + Range(least, most) + " m for a span of " + NumberText(span) + " m";
}

std::string BaysReason(const TrussFamily& family, const std::string& text) {
  const std::optional<float> value = NumericValue(text);
  const float step = family.evenBays ? 2 : 1;
  if (value && IsIn(*value, family.leastBays, MaxBays) && std::fmod(*value, step) == 0) return "";
  const std::string kind = family.evenBays ? "must be an even number from " : "must be a whole number from ";
  return kind + Range(family.leastBays, MaxBays) + " for the family " + std::string(family.name);
}

/// Fields are checked in their order: the span stands before the height.
std::string ReasonAgainst(const TrussFamily& family, const TrussTexts& texts, const FieldDescription& field) {
  if (field.field == TrussField::Bays) return BaysReason(family, texts[field.field]);
  const std::string reason = NumberReason(field, texts[field.field]);
  return reason.empty() && field.field == TrussField::Height ? SteepnessReason(family, texts) : reason;
}

const SupportChoice* SupportNamed(const TrussFamily& family, std::string_view name) {
  const auto found = std::find_if(family.supports.begin(), family.supports.end(),
                                  [name](const SupportChoice& choice) { return choice.name == name; });
  return found == family.supports.end() ? nullptr : &*found;
}

template <class Items>
std::string NamesOf(const Items& items) {
  std::string names;
  for (const auto& item : items) names += (names.empty() ? "" : ", ") + std::string(item.name);
  return names;
}

TrussSize SizeOf(const TrussFamily& family, const TrussTexts& texts) {
  const SupportChoice* support = SupportNamed(family, texts.support);
  Ensure(support != nullptr, "the description of a truss has been checked");
  return {ValueOf(texts, TrussField::Span), ValueOf(texts, TrussField::Height),
          static_cast<int>(ValueOf(texts, TrussField::Bays)), support->kind};
}

TrussField AreaOf(MemberKind kind) {
  switch (kind) {
  case MemberKind::Vertical: return TrussField::VerticalArea;
  case MemberKind::Diagonal: return TrussField::DiagonalArea;
  default: return TrussField::ChordArea;
  }
}

void FillNodes(StoredModel& model, const TrussShape& shape, bool upright, float load) {
  model.nodeCount = static_cast<std::int16_t>(shape.nodes.size());
  model.nodes.Recreate(model.nodeCount);
  for (int n = 1; n <= model.nodeCount; ++n) {
    const ShapeNode& node = shape.nodes[static_cast<std::size_t>(n - 1)];
    model.nodes(n, NodeX) = static_cast<float>(node.x);
    model.nodes(n, NodeY) = static_cast<float>(node.y);
    model.nodes(n, NodeSupport) = static_cast<float>(node.support);
    if (!node.loaded || node.support != 0 || load == 0) continue;
    model.nodes(n, upright ? NodeForceX : NodeForceY) = upright ? load : -load;
  }
}

void FillMembers(StoredModel& model, const TrussShape& shape, const TrussTexts& texts) {
  model.memberCount = static_cast<std::int16_t>(shape.members.size());
  model.members.Recreate(model.memberCount);
  for (int m = 1; m <= model.memberCount; ++m) {
    const ShapeMember& member = shape.members[static_cast<std::size_t>(m - 1)];
    model.members(m, MemberNodeI) = static_cast<float>(member.i + 1);
    model.members(m, MemberNodeJ) = static_cast<float>(member.j + 1);
    model.members(m, MemberE) = ValueOf(texts, TrussField::E);
    model.members(m, MemberA) = ValueOf(texts, AreaOf(member.kind));
  }
}

/// How many directions a support code restrains.
int RestraintCount(float code) {
  if (code == 0) return 0;
  return code == 1 || code == 2 ? 1 : 2;
}

} // namespace

std::span<const TrussFamily> TrussFamilies() {
  static const std::array<TrussFamily, 9> families = AllFamilies();
  return families;
}

const TrussFamily* FamilyNamed(std::string_view name) {
  for (const TrussFamily& family : TrussFamilies()) {
    if (family.name == name) return &family;
  }
  return nullptr;
}

std::string FamilyNames() { return NamesOf(TrussFamilies()); }

std::string SupportNames(const TrussFamily& family) { return NamesOf(family.supports); }

TrussTexts StandardTexts(const TrussFamily& family) {
  TrussTexts texts;
  for (const FieldDescription& each : TrussFields) texts[each.field] = NumberText(Standard(family, each.field));
  texts.support = family.supports.front().name;
  return texts;
}

TrussTexts TextsForFamily(const TrussTexts& texts, const TrussFamily& from, const TrussFamily& to) {
  const TrussTexts before = StandardTexts(from);
  const TrussTexts after = StandardTexts(to);
  TrussTexts changed = texts;
  for (std::size_t i = 0; i < TrussFieldCount; ++i) {
    if (texts.values[i] == before.values[i]) changed.values[i] = after.values[i];
  }
  if (texts.support == before.support) changed.support = after.support;
  return changed;
}

bool IsUsed(const TrussFamily& family, TrussField field) {
  return field != TrussField::VerticalArea || family.hasVerticals;
}

std::optional<TrussFault> FaultOf(const TrussFamily& family, const TrussTexts& texts) {
  for (const FieldDescription& each : TrussFields) {
    if (!IsUsed(family, each.field)) continue;
    const std::string reason = ReasonAgainst(family, texts, each);
    if (!reason.empty()) return TrussFault{each.option, each.title, reason};
  }
  if (SupportNamed(family, texts.support) != nullptr) return std::nullopt;
  return TrussFault{"support", "Support", "must be one of " + SupportNames(family)};
}

StoredModel MakeTruss(const TrussFamily& family, const TrussTexts& texts) {
  constexpr std::int16_t MinCapacity = 20;
  const TrussShape shape = NumberedAlong(family.shape(SizeOf(family, texts)), family.upright);
  StoredModel model;
  FillNodes(model, shape, family.upright, ValueOf(texts, TrussField::Load));
  FillMembers(model, shape, texts);
  model.capacity = std::max({MinCapacity, model.nodeCount, model.memberCount});
  return model;
}

int DegreeOfIndeterminacy(const StoredModel& model) {
  int unknowns = model.memberCount;
  for (int n = 1; n <= model.nodeCount; ++n) unknowns += RestraintCount(model.nodes(n, NodeSupport));
  return unknowns - 2 * model.nodeCount;
}

} // namespace strutwright
