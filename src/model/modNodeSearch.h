#pragma once

namespace strutwright {

/// The first node, in number order, that lies closer than PickRadius to a point, in m, y upwards; 0 when there is none.
int FindNode(float x, float y);

} // namespace strutwright
