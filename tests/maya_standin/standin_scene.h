#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "lipvane/host/host.h"
#include "lipvane/host/standalone/standalone_host.h"
#include "tests/support/recording_host.h"

namespace lipvane::test {

/// What a channel is driven by.
struct ChannelInput {
  enum class Kind { kNone, kTimeCurve, kDrivenKey, kOther };
  Kind kind = Kind::kNone;
  std::string driver;  ///< the driving node's name
  bool isLocked = false;
  bool isOfCompound = false;      ///< drives all three axes as one
  bool isLockOfCompound = false;  ///< locks all three axes as one
  bool isRetimed = false;         ///< is a curve whose time something drives
  /// Types of the nodes between the channel and its curve, the nearest to the channel first.
  std::vector<std::string> between;
};

/// A scene that the stand-in shows to a plug-in: a host of ours, and what Maya tells beyond it.
class StandinScene {
 public:
  virtual ~StandinScene() = default;
  virtual host::Host& Host() = 0;
  virtual std::string FullPath(const host::Node& node) = 0;
  virtual ChannelInput InputOf(const host::Node& node, const host::Attribute& attribute) = 0;
};

class EmbeddedStandinScene : public StandinScene {
 public:
  explicit EmbeddedStandinScene(standalone::StandaloneHost& host) : host_(host) {}

  host::Host& Host() override { return host_; }
  std::string FullPath(const host::Node& node) override;
  ChannelInput InputOf(const host::Node& node, const host::Attribute& attribute) override;

  // What the scene does not tell: of drivers by their names, of channels by theirs
  // ("|head|jaw.rotateX").
  std::set<std::string> drivenKeys;  ///< curves, though not over time
  std::set<std::string> compoundDrivers;
  std::set<std::string> retimedCurves;
  std::set<std::string> lockedAsOne;
  std::map<std::string, std::vector<std::string>> between;

 private:
  standalone::StandaloneHost& host_;
};

class RecordingStandinScene : public StandinScene {
 public:
  explicit RecordingStandinScene(RecordingHost& host) : host_(host) {}

  host::Host& Host() override { return host_; }
  std::string FullPath(const host::Node& node) override { return host_.PathOf(node); }
  ChannelInput InputOf(const host::Node& node, const host::Attribute& attribute) override;

 private:
  RecordingHost& host_;
};

}  // namespace lipvane::test
