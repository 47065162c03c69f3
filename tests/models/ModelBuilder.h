#pragma once

#include <vector>

namespace strutwright {

struct NodeData {
  float x = 0;      ///< m
  float y = 0;      ///< m
  float forceX = 0; ///< kN
  float forceY = 0; ///< kN
  float support = 0;
};

struct MemberData {
  float i = 0;
  float j = 0;
  float E = 200;  ///< kN/mm2
  float A = 1000; ///< mm2
  float PS = 0;   ///< kN
};

struct ModelData {
  std::vector<NodeData> nodes;
  std::vector<MemberData> members;
};

/// Puts a model straight into the tables, fields 6 to 9 zero; the grids stay as they are.
void SetTables(const ModelData& model);

/// Puts a model into the tables and the data grids, as opening a file does.
void SetModel(const ModelData& model);

/// A simply supported Pratt truss with loads on its lower chord.
/// nodes: 4 or more, even; half of them on each chord, numbered panel by panel along the span.
ModelData PrattTruss(int nodes);

/// A 3-4-5 triangle: 1 (0, 0) pinned, 2 (4, 0) on a roller, 3 (4, 3) loaded with (5, -10).
ModelData Triangle();

/// Four corners joined by four sides, without a diagonal: a mechanism.
ModelData Square();

/// Start values for all state of the model.
void ResetModel();

} // namespace strutwright
