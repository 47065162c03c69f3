#pragma once

#include "ModelBuilder.h"

#include <vector>

namespace strutwright {

/// A truss from a textbook and the forces printed there.
struct TextbookTruss {
  ModelData model;
  std::vector<double> forces; ///< of members 1, 2, ...; tension positive, as printed
  double printed = 0;         ///< half a unit in the last digit printed
};

// The first four are examples of R. C. Hibbeler, "Engineering Mechanics: Statics", the chapter on structural analysis;
// the last two of the same author's "Structural Analysis", the chapter on trusses.  Their numbers differ from edition
// to edition, so that each is named by what it shows.  The geometry and the printed figures were written down from
// memory; the working in the comments derives each figure anew.

/// The first example of the method of joints: three joints, 500 N at the top one.
//   B 500->     B (0, 2), A (0, 0) pinned, C (2, 0) on a roller.
//   | \         Joint B: x: 500 + F_BC sin 45 = 0 with the bar going down to the right, so 707.1 N in compression;
//   A--C        y: F_BA = 707.1 cos 45 = 500 N in tension.  Joint C: x: F_CA = 707.1 cos 45 = 500 N in tension.
inline TextbookTruss ThreeJoints() {
  return {{{{0, 0, 0, 0, 3}, {0, 2, 500, 0}, {2, 0, 0, 0, 1}}, {{2, 3}, {2, 1}, {3, 1}}}, {-707.1, 500, 500}, 0.05};
}

/// Joints in the order A, D, C after the reactions: 400 N on B, 600 N along the lower chord at D.
//      B----C     A (0, 0) on a roller, B (3, 4), C (6, 4) pinned, D (6, 0).
//     / \   |     Moments about C: -6 Ay + 3 (400) + 4 (600) = 0, Ay = 600; Cx = -600, Cy = -200.
//    /   \  |     A: F_AB = -600 (5/4) = -750, F_AD = 450.  D: x: -450 - (3/5) F_DB + 600 = 0, F_DB = 250;
//   A------D 600> y: F_DC = -(4/5) 250 = -200.  C: x: F_CB = -600.
inline TextbookTruss TwoPanels() {
  return {
      {{{0, 0, 0, 0, 1}, {3, 4, 0, -400}, {6, 4, 0, 0, 3}, {6, 0, 600, 0}}, {{1, 2}, {1, 4}, {4, 2}, {4, 3}, {3, 2}}},
      {-750, 450, 250, -200, -600},
      0.5};
}

/// The first example of the method of sections: members GE, GC and BC.
//       G----E 400>   A (0, 0) pinned, D (12, 0) on a roller, panels of 4, depth 3; 1200 N at C.
//     / |  \ | \      Moments about A: 12 Dy - 8 (1200) - 3 (400) = 0, Dy = 900; Ay = 300, Ax = -400.
//   A---B----C---D    Left part, about G: 3 F_BC - 3 (400) - 4 (300) = 0, F_BC = 800; about C: 3 F_GE + 8 (300) = 0,
//                     F_GE = -800; y: 300 - (3/5) F_GC = 0, F_GC = 500.
inline TextbookTruss ThreePanels() {
  // The other members by joints: A: F_AG = -300 (5/3), F_AB = 400 + 400; B: F_BG = 0; D: F_DE = -900 (5/3),
  // F_CD = 1200; C: y: F_CE = 1200 - (3/5) 500.
  return {{{{0, 0, 0, 0, 3}, {4, 0}, {8, 0, 0, -1200}, {12, 0, 0, 0, 1}, {4, 3}, {8, 3, 400, 0}},
           {{1, 2}, {2, 3}, {3, 4}, {1, 5}, {5, 6}, {6, 4}, {5, 2}, {5, 3}, {6, 3}}},
          {800, 800, 1200, -500, -800, -1500, 0, 500, 900},
          0.5};
}

/// The moment about the crossing of two members outside of the truss: member CF of a roof.
//             G           A (0, 0) pinned, E (16, 0) on a roller, panels of 4; H and F at height 4, G at 6.
//        H  / | \  F      5 kN at C, 3 kN at D: 16 Ey = 8 (5) + 12 (3), Ey = 4.75.  GF and the lower chord meet
//      / | \  |  / | \    at O (20, 0).  Right part about O: -12 F_CF sin 45 + 8 (3) - 4 (4.75) = 0 with CF taken
//    A---B----C----D---E  as compression: 0.589 kN.
inline ModelData BowRoof() {
  return {{{0, 0, 0, 0, 3}, {4, 0}, {8, 0, 0, -5}, {12, 0, 0, -3}, {16, 0, 0, 0, 1}, {4, 4}, {8, 6}, {12, 4}},
          {{1, 2}, {2, 3}, {3, 4}, {4, 5}, {1, 6}, {6, 7}, {7, 8}, {8, 5}, {6, 2}, {7, 3}, {8, 4}, {6, 3}, {8, 3}}};
}
inline constexpr int BowRoofMember = 13;
inline constexpr double BowRoofForce = -0.589;

/// A compound truss: two triangles, each divided in four, hinged at C and joined by the bar HG at their tops.
//  A (0, 0) pinned, E (8, 0) on a roller, sides of 4; 4 kN at the middles of AC and CE, 2 kN at C; Ay = Ey = 5.
//  Section through HG and the hinge C, left part, moments about C: 4 (5) - 2 (4) + F_HG 4 sin 60 = 0: -3.46 kN.
inline ModelData TwoTriangles() {
  const float h = 3.4641016F;
  return {{{0, 0, 0, 0, 3},
           {2, 0, 0, -4},
           {4, 0, 0, -2},
           {6, 0, 0, -4},
           {8, 0, 0, 0, 1},
           {1, h / 2},
           {2, h},
           {3, h / 2},
           {5, h / 2},
           {6, h},
           {7, h / 2}},
          {{1, 2},
           {2, 3},
           {3, 4},
           {4, 5},
           {1, 6},
           {6, 7},
           {7, 8},
           {8, 3},
           {2, 6},
           {2, 8},
           {6, 8},
           {3, 9},
           {9, 10},
           {10, 11},
           {11, 5},
           {9, 4},
           {4, 11},
           {9, 11},
           {7, 10}}};
}
inline constexpr int TwoTrianglesBar = 19;
inline constexpr double TwoTrianglesForce = -3.46;

/// A complex truss, there solved by a substitute member: 5 kN sideways at the top.
//        C 5>        A (-4, -3) pinned, E (4, -3) on a roller, B (-4, 0), F (0, 0), D (4, 0), C (0, 4).
//      / | \         With a bar BD instead of CF the 5 kN give (S'), and a pair of 1 kN along CF gives (s):
//    B   F   D       CB 3.54, -0.707; CD -3.54, -0.707; FA 0, 0.833; FE 0, 0.833; EB 0, -0.712;
//    | /-'-\ |       ED -4.38, -0.250; DA 5.34, -0.712; BA 2.50, -0.250; BD -2.50, 1.167.
//    A       E       The bar BD must bear nothing: x = 2.50 / 1.167 = 2.143, and each force is S' + x s.
inline TextbookTruss SubstituteMember() {
  return {{{{-4, -3, 0, 0, 3}, {-4, 0}, {0, 4, 5, 0}, {4, 0}, {4, -3, 0, 0, 1}, {0, 0}},
           {{3, 2}, {3, 4}, {6, 1}, {6, 5}, {5, 2}, {5, 4}, {4, 1}, {2, 1}, {3, 6}}},
          {2.02, -5.05, 1.79, 1.79, -1.53, -4.91, 3.81, 1.96, 2.14},
          0.006};
}

/// The members without force of a Fink roof, found by looking: GC at G, DF at D, then FC at F.
//            C          A (0, 0) pinned, E (8, 0) on a roller, C (4, 4); B (2, 2) and D (6, 2) on the rafters;
//        B  /|\  D      H (3, 0), G (4, 0) and F (5, 0) on the chord.  5 kN at C, 2 kN at B.
//      /  \/ | \/  \    At G the chord goes straight on, at D the rafter, and then at F the chord again.
//    A-----H-G-F-----E
inline ModelData FinkRoof() {
  return {{{0, 0, 0, 0, 3}, {2, 2, 0, -2}, {4, 4, 0, -5}, {6, 2}, {8, 0, 0, 0, 1}, {5, 0}, {4, 0}, {3, 0}},
          {{1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {6, 7}, {7, 8}, {8, 1}, {2, 8}, {8, 3}, {7, 3}, {6, 3}, {4, 6}}};
}

} // namespace strutwright
