#include "lipvane/host/standalone/tangent_names.h"

#include <algorithm>
#include <array>

namespace lipvane::standalone {
namespace {

struct Row {
  std::string_view name;
  Tangent tangent;
};

constexpr std::array kRows{
    Row{"auto", Tangent::kAuto},       Row{"spline", Tangent::kSpline},
    Row{"linear", Tangent::kLinear},   Row{"flat", Tangent::kFlat},
    Row{"step", Tangent::kStep},       Row{"stepnext", Tangent::kStepNext},
    Row{"clamped", Tangent::kClamped}, Row{"plateau", Tangent::kPlateau},
};

}  // namespace

std::string_view TangentName(Tangent tangent) {
  const auto row = std::find_if(kRows.begin(), kRows.end(),
                                [&](const Row& one) { return one.tangent == tangent; });
  return row == kRows.end() ? std::string_view() : row->name;
}

std::optional<Tangent> TangentNamed(std::string_view name) {
  const auto row =
      std::find_if(kRows.begin(), kRows.end(), [&](const Row& one) { return one.name == name; });
  if (row == kRows.end()) return std::nullopt;
  return row->tangent;
}

}  // namespace lipvane::standalone
