#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "lipvane/engine/math.h"

namespace lipvane::cli {

/// Members stay in the order in which they were given.
using Json = nlohmann::ordered_json;

/// JSON on one line, always valid: numbers read back as the values they were printed from, those
/// that are not finite are null, and bytes that are not UTF-8 become replacement characters.
inline std::string OneLine(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

inline Json VectorJson(const Vector3& v) {
  return Json::array({v.x, v.y, v.z});
}
/// w, x, y, z.
inline Json RotationJson(const Quaternion& q) {
  return Json::array({q.w, q.x, q.y, q.z});
}

}  // namespace lipvane::cli
