#pragma once

#include "ModelBuilder.h"

#include <random>

namespace strutwright {

/// Nine kinds of sound trusses.
enum class KnownFamily {
  Pratt,
  Howe,
  Warren,
  FanRoof,
  KTruss,
  Cantilever,
  RandomSimple,
  ThreeHingedArch,
  CrossBracedTower,
};
inline constexpr int FamilyCount = 9;

/// A truss whose statics is known by how it was put together.
struct KnownTruss {
  ModelData model;
  int mechanisms = 0;
  int indeterminacy = 0;
};

/// A stable truss of about so many nodes, never fewer than 6, its nodes a little out of their places, with loads.
KnownTruss MakeTruss(KnownFamily family, int nodes, std::mt19937& random);

/// The same with one member or one support taken away that it can't do without.
KnownTruss Weakened(KnownTruss truss, KnownFamily family, std::mt19937& random);

/// The model with E, A and all coordinates multiplied.
ModelData Scaled(const ModelData& model, float E, float A, float length);

} // namespace strutwright
