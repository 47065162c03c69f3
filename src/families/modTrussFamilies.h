#pragma once

#include "modModelFile.h"
#include "modTrussShapes.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace strutwright {

/// The numbers that a truss is made of.
enum class TrussField : std::size_t { Span, Height, Bays, E, ChordArea, VerticalArea, DiagonalArea, Load };

inline constexpr std::size_t TrussFieldCount = 8;

/// One number: window, command line, messages and manual all take it from here.
struct FieldDescription {
  TrussField field;
  std::string_view option; ///< its name on the command line, without dashes
  std::string_view title;  ///< its name in words
  char key;                ///< the letter of the title that leads to it with Alt
  std::string_view unit;   ///< empty where it has none
  float least;
  float most;
  float standard; ///< the default; of span, height and bays each family has its own
  std::string_view help;
};

inline constexpr float MaxBays = 200;

/// Least height over span.  What is flatter, or steeper than its family goes, is no truss any more, and its equations
/// are hard to solve.
inline constexpr float MinSteepness = 0.01F;

inline constexpr std::array<FieldDescription, TrussFieldCount> TrussFields{{
    {TrussField::Span, "span", "Span", 'S', "m", 0.1F, 10000, 24,
     "Length between the supports; of a cantilever up to its tip, of a tower its width below"},
    {TrussField::Height, "height", "Height", 'H', "m", 0.1F, 10000, 3, "Between the chords, or up to the highest node"},
    {TrussField::Bays, "bays", "Bays", 'B', "", 1, MaxBays, 8, "Number of bays along the span, or up the tower"},
    {TrussField::E, "e", "E", 'E', "kN/mm2", 0.001F, 10000, 200, "Elastic modulus of every member"},
    {TrussField::ChordArea, "chord-area", "Area of chords", 'c', "mm2", 1, 1000000, 2000,
     "Chords and end posts, rafters, legs of a tower"},
    {TrussField::VerticalArea, "vertical-area", "Area of verticals", 'v', "mm2", 1, 1000000, 1000,
     "Verticals, struts of a Fink roof, horizontals of a tower"},
    {TrussField::DiagonalArea, "diagonal-area", "Area of diagonals", 'd', "mm2", 1, 1000000, 1200,
     "Diagonals, inner ties of a Fink roof"},
    {TrussField::Load, "load", "Load at a node", 'L', "kN", -100000, 100000, 10,
     "At each node of the loaded chord that has no support: downwards, at a tower to the right"},
}};

constexpr const FieldDescription& Description(TrussField field) { return TrussFields[static_cast<std::size_t>(field)]; }

/// One way to hold a family's trusses.
struct SupportChoice {
  SupportKind kind;
  std::string_view name;  ///< on the command line
  std::string_view title; ///< in words
};

/// One family: window, command line and manual all take it from here.
struct TrussFamily {
  std::string_view name;  ///< on the command line
  std::string_view title; ///< in words
  float span;             ///< a size to begin with
  float height;
  float bays;
  float leastBays;
  float mostSteepness;                     ///< most height over span
  bool evenBays;                           ///< an odd number of bays is no such truss
  bool hasVerticals;                       ///< otherwise the area of the verticals says nothing
  bool upright;                            ///< grows upwards: numbered from the ground up and loaded from the side
  std::span<const SupportChoice> supports; ///< the first is the usual one
  TrussShape (*shape)(const TrussSize&);
};

/// All families, in the order in which they are offered.
std::span<const TrussFamily> TrussFamilies();

/// The family of a name; nullptr when there is none.
const TrussFamily* FamilyNamed(std::string_view name);

/// The names of all families, or of a family's kinds of support, with commas between.
std::string FamilyNames();
std::string SupportNames(const TrussFamily& family);

/// A truss as a user describes it.
struct TrussTexts {
  std::array<std::string, TrussFieldCount> values;
  std::string support; ///< name of a kind of support

  std::string& operator[](TrussField field) { return values[static_cast<std::size_t>(field)]; }
  const std::string& operator[](TrussField field) const { return values[static_cast<std::size_t>(field)]; }
};

/// What a family begins with.
TrussTexts StandardTexts(const TrussFamily& family);

/// The same description for another family: what was the first one's standard becomes the other one's, what the user
/// changed stays.
TrussTexts TextsForFamily(const TrussTexts& texts, const TrussFamily& from, const TrussFamily& to);

/// Whether a number says something about a family's trusses; one that does not is not checked.
bool IsUsed(const TrussFamily& family, TrussField field);

/// What is wrong with a description.
struct TrussFault {
  std::string_view option; ///< the field's name on the command line
  std::string_view title;  ///< its name in words
  std::string reason;      ///< what it must be, to stand after either name: "must be a number from 0.1 to 10000 m"
};

/// The first fault of a description; nothing when a truss can be made of it.
std::optional<TrussFault> FaultOf(const TrussFamily& family, const TrussTexts& texts);

/// The truss, with nodes numbered along it and room in the grids for its nodes and members, at least 20.
/// texts: without a fault.
StoredModel MakeTruss(const TrussFamily& family, const TrussTexts& texts);

/// Members and restrained directions beyond what equilibrium alone determines: 0 for a determinate truss.
int DegreeOfIndeterminacy(const StoredModel& model);

} // namespace strutwright
