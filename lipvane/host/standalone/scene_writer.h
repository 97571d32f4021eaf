#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "lipvane/host/standalone/key_edits.h"
#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

/// A curve with keys that the file does not have, and the attribute that it drives.
struct NewCurve {
  ItemId curve;
  std::string plug;  ///< "|head|jaw.rx"
};

/// Writes the bytes of the file, the keys of changed curves replaced and other changes made, new
/// nodes and curves that have keys behind the last statement.
void WriteScene(const SceneData& data, const std::vector<NewCurve>& newCurves,
                const TextChanges& changes, std::ostream& out);

}  // namespace lipvane::standalone
