#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/recording_host.h"
#include "tests/support/scene_description.h"

namespace lipvane::test {

/// A host with the plug-in loaded, as its user meets it.
class HostUnderTest {
 public:
  virtual ~HostUnderTest() = default;
  /// Runs a command by name with its words; true when it succeeded.
  virtual bool Run(const std::string& command, const std::vector<std::string>& words) = 0;
  /// Everything shown so far.
  virtual std::vector<Shown> AllShown() const = 0;
  /// Full paths, in selection order.
  virtual std::vector<std::string> Selection() const = 0;
  virtual double CurrentTime() const = 0;
  /// "|head|jaw.rotateX" -> frame -> value; every curve that drives a channel.
  virtual std::map<std::string, std::map<double, double>> Curves() const = 0;
  /// Whether it knows the factor of a unit conversion between a channel and its curve.
  virtual bool KeysThroughConversions() const { return true; }
};

/// Makes one kind of host from a described scene.
using HostMaker = std::unique_ptr<HostUnderTest> (*)(const SceneDescription&);

template <class Host>
std::unique_ptr<HostUnderTest> MakeHost(const SceneDescription& scene) {
  return std::make_unique<Host>(scene);
}

}  // namespace lipvane::test
