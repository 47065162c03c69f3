#pragma once

#include "modInfluence.h"

#include <string>
#include <vector>

namespace strutwright {

/// One axle of a train of loads.
struct Axle {
  double force = 0;    ///< kN, downward
  double distance = 0; ///< m along x, behind the first axle

  bool operator==(const Axle&) const = default;
};

/// The axles of a train as they were typed or read.
using Train = std::vector<Axle>;

struct TrainReading {
  Train train;       ///< empty where there is a fault
  std::string fault; ///< one sentence without a full stop that says what to do; empty where there is none
};

/// Reads a train such as "50@0,100@3.5", force in kN at its distance in m behind the first axle, or the key of one of
/// TeachingTrains.  Axles come in any order; distances are counted from the foremost.
TrainReading ReadTrain(const std::string& text);

/// A train that courses use.
struct TeachingTrain {
  std::string key;   ///< to be typed: "lorry"
  std::string name;  ///< to be shown: "Lorry of 3 axles: 35, 145 and 145 kN"
  std::string axles; ///< as ReadTrain reads them
};
const std::vector<TeachingTrain>& TeachingTrains();

/// Which way a train goes; its first axle leads.
enum class Heading { Right, Left };

/// The value that a line gives a train whose first axle stands at x = position, in m.  Axles that are not over the path
/// count nothing; those on its first or last node count.
double ValueUnder(const Train& train, const InfluenceLine& line, Heading heading, double position);

/// Where a train has to stand for an extreme value.
struct TrainPosition {
  Heading heading = Heading::Right;
  double position = 0; ///< x of the first axle, m
  double value = 0;    ///< kN or mm
};

/// The extremes of all positions of a train that passes the whole path.
struct TrainEnvelope {
  TrainPosition minimum; ///< never above 0, since the path is empty at first
  TrainPosition maximum; ///< never below 0
};

/// Exact: under straight lines between nodes an extreme is reached where an axle stands on a node.  An axle that comes
/// onto the path or leaves it can make the value jump; an extreme may be the value just beside the jump.
/// Of equal values the first along x counts.
TrainEnvelope EnvelopeOf(const Train& train, const InfluenceLine& line, Heading heading);

/// The same of both headings; of equal values that of the train going right counts.
TrainEnvelope EnvelopeOf(const Train& train, const InfluenceLine& line);

} // namespace strutwright
