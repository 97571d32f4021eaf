#include "lipvane/host/standalone/units.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

struct Unit {
  std::string_view name;
  double size;
};

constexpr std::array kTimes{
    Unit{"game", 15},          Unit{"film", 24},
    Unit{"pal", 25},           Unit{"ntsc", 30},
    Unit{"show", 48},          Unit{"palf", 50},
    Unit{"ntscf", 60},         Unit{"sec", 1},
    Unit{"second", 1},         Unit{"min", 1.0 / 60},
    Unit{"minute", 1.0 / 60},  Unit{"millisec", 1000},
    Unit{"millisecond", 1000}, Unit{"hour", 1.0 / 3600},
    Unit{"29.97df", 29.97},  // drop frame: only its numbering differs
};

constexpr std::array kLengths{
    Unit{"mm", 0.1},   Unit{"millimeter", 0.1}, Unit{"cm", 1},        Unit{"centimeter", 1},
    Unit{"m", 100},    Unit{"meter", 100},      Unit{"km", 100000},   Unit{"kilometer", 100000},
    Unit{"in", 2.54},  Unit{"inch", 2.54},      Unit{"ft", 30.48},    Unit{"foot", 30.48},
    Unit{"yd", 91.44}, Unit{"yard", 91.44},     Unit{"mi", 160934.4}, Unit{"mile", 160934.4},
};

constexpr std::array kAngles{
    Unit{"deg", kRadiansPerDegree},
    Unit{"degree", kRadiansPerDegree},
    Unit{"rad", 1},
    Unit{"radian", 1},
    Unit{"min", kRadiansPerDegree / 60},
    Unit{"minute", kRadiansPerDegree / 60},
    Unit{"sec", kRadiansPerDegree / 3600},
    Unit{"second", kRadiansPerDegree / 3600},
};

template <std::size_t N>
std::optional<double> Find(const std::array<Unit, N>& units, std::string_view name) {
  for (const Unit& unit : units) {
    if (unit.name == name) return unit.size;
  }
  return std::nullopt;
}

}  // namespace

std::optional<double> FramesPerSecondOf(std::string_view unit) {
  if (const auto known = Find(kTimes, unit)) return known;
  constexpr std::string_view kRate = "fps";
  if (unit.size() <= kRate.size() || unit.substr(unit.size() - kRate.size()) != kRate) {
    return std::nullopt;
  }
  const auto rate = text::WholeReal(unit.substr(0, unit.size() - kRate.size()));
  if (!rate || !std::isfinite(*rate) || *rate <= 0.0) return std::nullopt;
  return rate;
}

std::optional<double> CentimetresIn(std::string_view unit) {
  return Find(kLengths, unit);
}

std::optional<double> RadiansIn(std::string_view unit) {
  return Find(kAngles, unit);
}

}  // namespace lipvane::standalone
