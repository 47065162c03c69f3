#include "modTrain.h"

#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <sstream>

namespace strutwright {

namespace {

constexpr const char* TrainExample = "50@0,100@3.5";

/// The double that a numeric text stands for; nothing where it is none that a model could hold.
std::optional<double> PreciseValue(std::string text) {
  if (!NumericValue(text)) return std::nullopt;
  // The reader of doubles takes no blanks and no plus in front; elsewhere a plus may go too.
  std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '+'; });
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

/// Reads "100@3.5" into an axle.  Returns what is wrong with it.
std::string ReadAxle(const std::string& text, Axle& axle) {
  const std::size_t at = text.find('@');
  const std::optional<double> force = PreciseValue(text.substr(0, at));
  const std::optional<double> distance = at == std::string::npos ? std::nullopt : PreciseValue(text.substr(at + 1));
  if (!force || !distance) {
    return "\"" + text + "\" is no axle: write its force in kN and its distance in m from the first, such as 100@3.5";
  }
  if (!(*force > 0)) return "The axle \"" + text + "\" has no load: give it a force above 0 kN, which acts downward";
  if (*distance < 0) {
    return "The axle \"" + text + "\" has a negative distance: measure from the first axle to the rear, from 0 m on";
  }
  axle = {*force, *distance};
  return "";
}

void CountFromFirst(Train& train) {
  std::stable_sort(train.begin(), train.end(), [](const Axle& a, const Axle& b) { return a.distance < b.distance; });
  const double first = train.front().distance;
  for (Axle& axle : train) axle.distance -= first;
}

/// What a train going this way adds to x per m behind its first axle.
double Behind(Heading heading) { return heading == Heading::Right ? -1 : 1; }

/// How far an axle is from a node at most that it still stands on, which sums of coordinates may miss by rounding.
constexpr double OnNode = 1e-9;

/// Where a train is about to move from where it stands, or that it stays.
enum class Step { Back = -1, None = 0, On = 1 };

/// The influence line as a function of x.
class Ordinates {
 public:
  explicit Ordinates(const InfluenceLine& line) : Line(line) {
    if (Line.x.front() <= Line.x.back()) return;
    std::reverse(Line.nodes.begin(), Line.nodes.end());
    std::reverse(Line.x.begin(), Line.x.end());
    std::reverse(Line.values.begin(), Line.values.end());
  }

  const std::vector<double>& Nodes() const { return Line.x; }
  double Tolerance() const { return OnNode * std::max({1.0, std::abs(Line.x.front()), std::abs(Line.x.back())}); }

  /// The ordinate at x for an axle that is about to take a step.
  double At(double x, Step step) const {
    const bool onFirst = std::abs(x - Line.x.front()) <= Tolerance();
    const bool onLast = std::abs(x - Line.x.back()) <= Tolerance();
    if ((onFirst && step == Step::Back) || (onLast && step == Step::On)) return 0;
    if (onFirst) return Line.values.front();
    if (onLast) return Line.values.back();
    return x < Line.x.front() || x > Line.x.back() ? 0 : Between(x);
  }

 private:
  double Between(double x) const {
    const auto after = std::upper_bound(Line.x.begin(), Line.x.end(), x);
    const auto k = static_cast<std::size_t>(after - Line.x.begin());
    const double share = (x - Line.x[k - 1]) / (Line.x[k] - Line.x[k - 1]);
    return Line.values[k - 1] + share * (Line.values[k] - Line.values[k - 1]);
  }

  InfluenceLine Line;
};

double SumOver(const Train& train, const Ordinates& ordinates, Heading heading, double position, Step step) {
  double sum = 0;
  for (const Axle& axle : train) sum += axle.force * ordinates.At(position + Behind(heading) * axle.distance, step);
  return sum;
}

/// Positions of the first axle in which any axle stands on a node, ascending.
std::vector<double> Candidates(const Train& train, const Ordinates& ordinates, Heading heading) {
  std::vector<double> positions;
  positions.reserve(train.size() * ordinates.Nodes().size());
  for (const Axle& axle : train) {
    for (const double x : ordinates.Nodes()) positions.push_back(x - Behind(heading) * axle.distance);
  }
  std::sort(positions.begin(), positions.end());
  return positions;
}

/// The size of a value from which on another one is more than rounding away from it.
double Noise(const Train& train, const InfluenceLine& line) {
  double load = 0;
  double ordinate = 0;
  for (const Axle& axle : train) load += axle.force;
  for (const double value : line.values) ordinate = std::max(ordinate, std::abs(value));
  return 1e-12 * load * ordinate;
}

} // namespace

TrainReading ReadTrain(const std::string& text) {
  for (const TeachingTrain& known : TeachingTrains()) {
    if (text == known.key) return ReadTrain(known.axles);
  }
  if (text.find_first_not_of(" \t") == std::string::npos) {
    return {{},
            std::string("The train has no loads: write the force and distance of each axle, such as ") + TrainExample};
  }
  TrainReading reading;
  std::istringstream axles(text + (text.back() == ',' ? "," : ""));
  for (std::string each; reading.fault.empty() && std::getline(axles, each, ',');) {
    reading.fault = ReadAxle(each, reading.train.emplace_back());
  }
  if (!reading.fault.empty()) return {{}, reading.fault};
  CountFromFirst(reading.train);
  return reading;
}

const std::vector<TeachingTrain>& TeachingTrains() {
  static const std::vector<TeachingTrain> trains{
      {"axle", "Single axle of 100 kN", "100@0"},
      {"tandem", "Tandem of 2 axles of 300 kN, 1.2 m apart", "300@0,300@1.2"},
      {"lorry", "Lorry of 3 axles of 35, 145 and 145 kN, 4.3 m apart", "35@0,145@4.3,145@8.6"},
      {"engine", "Railway engine of 4 axles of 250 kN, 1.6 m apart", "250@0,250@1.6,250@3.2,250@4.8"},
  };
  return trains;
}

double ValueUnder(const Train& train, const InfluenceLine& line, Heading heading, double position) {
  return SumOver(train, Ordinates(line), heading, position, Step::None);
}

// The value is linear in the position while no axle passes a node, so that its extremes lie where one does.
// Checked: against positions a millimetre apart.
TrainEnvelope EnvelopeOf(const Train& train, const InfluenceLine& line, Heading heading) {
  const Ordinates ordinates(line);
  const std::vector<double> positions = Candidates(train, ordinates, heading);
  const double noise = Noise(train, line);
  const TrainPosition outside{heading, positions.front(), 0};
  TrainEnvelope envelope{outside, outside};
  for (const double position : positions) {
    for (const Step step : {Step::None, Step::Back, Step::On}) {
      const double value = SumOver(train, ordinates, heading, position, step);
      if (value < envelope.minimum.value - noise) envelope.minimum = {heading, position, value};
      if (value > envelope.maximum.value + noise) envelope.maximum = {heading, position, value};
    }
  }
  return envelope;
}

TrainEnvelope EnvelopeOf(const Train& train, const InfluenceLine& line) {
  const TrainEnvelope right = EnvelopeOf(train, line, Heading::Right);
  const TrainEnvelope left = EnvelopeOf(train, line, Heading::Left);
  const double noise = Noise(train, line);
  return {left.minimum.value < right.minimum.value - noise ? left.minimum : right.minimum,
          left.maximum.value > right.maximum.value + noise ? left.maximum : right.maximum};
}

} // namespace strutwright
