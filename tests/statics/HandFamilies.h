#pragma once

#include "ModelBuilder.h"
#include "modDeterminacy.h"

#include <random>

namespace strutwright {

/// A determinate truss whose kind is known by how it was put together.
struct DeterminateTruss {
  ModelData model;
  TrussKind kind = TrussKind::Simple;
};

/// Ways to put a determinate truss together.
enum class HandFamily {
  Pratt,
  Howe,
  Warren,
  FanRoof,
  KTruss,
  Cantilever,
  RandomSimple,
  ThreeHingedArch, ///< compound: two simple halves and the ground
  HingeAndTie,     ///< compound: two strips that share an apex, and a tie
  ThreeLinks,      ///< compound: two strips joined by three bars
  Hexagon,         ///< complex: six nodes, each joined to three others without any triangle, and more nodes on them
};
inline constexpr int HandFamilyCount = 11;

/// A truss of about so many nodes, a little out of their places, with loads.
DeterminateTruss MakeDeterminate(HandFamily family, int nodes, std::mt19937& random);

/// One of a series: families in turn, 6 to 60 nodes.
DeterminateTruss SeededDeterminate(int number, std::mt19937& random);

} // namespace strutwright
