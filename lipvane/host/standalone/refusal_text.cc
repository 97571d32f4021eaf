#include "lipvane/host/standalone/refusal_text.h"

#include "lipvane/host/standalone/shown_name.h"

namespace lipvane::standalone {

std::string RefusalText(const Scene& scene, NodeId node, Channel channel) {
  const std::string driven = "driven by " + ShownName(scene.DriverName(node, channel));
  switch (scene.RefusalOf(node, channel)) {
    case Refusal::kLocked:
      return "locked";
    case Refusal::kOther:
      return driven + " (not a curve over time)";
    case Refusal::kLostValues:
      return driven + " through a conversion that loses its values";
    case Refusal::kUnreadKeys:
      return driven + ", a curve with keys that are not understood";
    case Refusal::kNoChannel:
    case Refusal::kNone:
      break;
  }
  return "refused";
}

}  // namespace lipvane::standalone
