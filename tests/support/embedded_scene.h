#pragma once

#include <map>
#include <string>
#include <vector>

#include "lipvane/host/standalone/message.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/standalone_host.h"
#include "tests/support/recording_host.h"

/// What the embedded host did, in the plain values that tests compare.
namespace lipvane::test {

Shown AsShown(const standalone::Message& message);

/// "|head|jaw.rotateX" -> frame -> value; every curve that drives a channel.
std::map<std::string, std::map<double, double>> CurvesOf(const standalone::Scene& scene);

/// The bytes that it is saved as.
std::string Written(const standalone::Scene& scene);

/// Full paths, in selection order.
std::vector<std::string> SelectionOf(const standalone::StandaloneHost& host);

}  // namespace lipvane::test
