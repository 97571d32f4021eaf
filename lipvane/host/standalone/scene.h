#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/host/host.h"
#include "lipvane/host/standalone/code_page.h"
#include "lipvane/host/standalone/curve.h"
#include "lipvane/host/standalone/playback_range.h"
#include "lipvane/host/standalone/sound_node.h"
#include "lipvane/host/standalone/transform.h"

namespace lipvane::standalone {

/// A scene that cannot be read: "FILE:LINE: reason" (no line when the file as a whole is at fault).
class SceneError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The nine channels that a bone's curves drive, in the host's order.
enum class Channel {
  kTranslateX,
  kTranslateY,
  kTranslateZ,
  kRotateX,
  kRotateY,
  kRotateZ,
  kScaleX,
  kScaleY,
  kScaleZ,
};
inline constexpr std::size_t kChannelCount = 9;

/// "translateX" and so on.
const char* ChannelName(Channel channel);
/// "tx" and so on.
const char* ChannelShortName(Channel channel);

enum class NodeKind { kWorld, kTransform, kJoint, kShape };

/// A DAG node by its number. Number 0 is the world.
using NodeId = std::size_t;
/// A path by its place in the walk. Path 0 is the world's.
using PathId = std::size_t;

/// Which input a channel or another transform attribute has.
enum class Driver {
  kNone,   ///< its own value
  kCurve,  ///< a curve over time, directly or through a node that passes it on
  kOther,  ///< something that is not evaluated here
};

/// Why a channel can be given no keys.
enum class Refusal {
  kNone,
  kNoChannel,  ///< the node is no transform
  kLocked,
  kOther,       ///< something that is not a curve over time drives it
  kLostValues,  ///< a curve drives it through a conversion that leaves nothing of the values
  kUnreadKeys,  ///< its curve has keys that are not understood
};

/// A Maya ASCII scene in memory: what concerns DAG nodes, transform channels, curves, time and
/// units is understood; everything else is kept as the bytes it was read as.
class Scene {
 public:
  /// Throws SceneError. `progress`, when given, hears how many of how many bytes are done.
  static Scene Open(const std::string& fileName,
                    const std::function<void(std::size_t, std::size_t)>& progress = {});
  /// The same from text in memory; `name` stands for the file in messages.
  static Scene Parse(std::string text, const std::string& name,
                     const std::function<void(std::size_t, std::size_t)>& progress = {});

  Scene(Scene&&) noexcept;
  Scene& operator=(Scene&&) noexcept;
  ~Scene();

  /// What was passed over while reading and a user should know: "FILE:LINE: text".
  const std::vector<std::string>& ReadingNotes() const;
  /// References to other files, which are not read: the file names as the scene gives them.
  const std::vector<std::string>& References() const;

  /// Of every name: they are the bytes of the file.
  const CodePage& Page() const;

  // Units.
  const std::string& TimeUnit() const;     ///< as in the file: "film" when it says none
  double FramesPerSecond() const;          ///< of the time unit
  double CentimetresPerUnit() const;       ///< of the linear unit
  const std::string& LinearUnit() const;   ///< by one of the host's names for it
  const std::string& AngularUnit() const;  ///< likewise
  /// How many centimetres or radians the channel's unit in the file and for users is; 1 for scale.
  double UnitSize(Channel channel) const;
  /// The time that the file was saved at, in frames.
  double StartTime() const;

  // Nodes and paths. Paths are in the order of a depth-first walk, the world first, the default
  // cameras next; a node with several parents has several paths.
  std::size_t PathCount() const;
  NodeId NodeOf(PathId path) const;
  PathId ParentPath(PathId path) const;     ///< 0 for the world's own
  std::string FullPath(PathId path) const;  ///< "|head|jaw"; empty for the world
  /// The same for messages: of a very long path the end, behind "...".
  std::string ShownPath(PathId path) const;
  std::string ShortestName(
      PathId path) const;  ///< "jaw", or as much of the path as makes it unique

  std::size_t NodeCount() const;
  const std::string& Name(NodeId node) const;  ///< the short name, "world" for the world
  const std::string& Type(NodeId node) const;  ///< "joint", "transform", "mesh" ...
  NodeKind Kind(NodeId node) const;
  bool IsInFile(NodeId node) const;  ///< false for the world and implied default cameras
  PathId FirstPath(NodeId node) const;
  NodeId FirstParent(NodeId node) const;  ///< 0 for top-level nodes and for the world

  // Values. Centimetres and radians.
  /// All that makes the node's local matrix at a time in frames. `unread`, when given, is told the
  /// long name of each attribute that counts and that something not evaluated here drives, and
  /// the name of what drives it; the value stored in the file stands in for it.
  TransformValues ValuesAt(NodeId node, double frame,
                           const std::function<void(const std::string& attribute,
                                                    const std::string& driver)>& unread = {}) const;

  // Channels and their curves.
  Driver DriverOf(NodeId node, Channel channel) const;
  const std::string& DriverName(NodeId node,
                                Channel channel) const;  ///< the node at the other end, or ""
  /// The type of that node, or "" when the file does not have it.
  const std::string& DriverType(NodeId node, Channel channel) const;
  bool IsLocked(NodeId node, Channel channel) const;
  /// The curve that drives the channel, or null. Its values are the channel's, also when the file
  /// has a conversion between. Good until a key is set.
  const Curve* CurveOf(NodeId node, Channel channel) const;
  Refusal RefusalOf(NodeId node, Channel channel) const;
  /// The curve that drives the channel, made when nothing drives it yet; false when keys are
  /// refused.
  bool AttachCurve(NodeId node, Channel channel);
  /// Adds or replaces a key (centimetres, radians). Needs an attached curve, else throws
  /// std::logic_error, and a finite time (std::invalid_argument).
  void SetKey(NodeId node, Channel channel, double frame, double value);
  /// How the curve enters and leaves a key that is there; what is not given stays.
  void SetTangents(NodeId node, Channel channel, double frame, std::optional<Tangent> in,
                   std::optional<Tangent> out);

  /// A curve and the channel it drives, by node path, then channel order.
  struct DrivenChannel {
    NodeId node;
    Channel channel;
    const Curve* curve;
  };
  std::vector<DrivenChannel> DrivenChannels() const;
  /// The other channels that the curve of a channel drives, in the same order, without their curve.
  std::vector<DrivenChannel> SharersOf(NodeId node, Channel channel) const;

  /// Widens the playback range that the file sets, and the animation range around it, so that both
  /// frames lie within. A file that sets none stays without.
  RangeChange ExtendPlaybackRange(double first, double last);
  /// Adds a node that plays a sound, unless there is one for the very file name.
  SoundNode AddSound(const Sound& sound);

  /// The scene as a file: the bytes that were read, with what was changed or added since. Throws
  /// SceneError, with nothing written, when the paths that new curves need are too long.
  void Write(std::ostream& out) const;

 private:
  struct Impl;
  explicit Scene(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
};

}  // namespace lipvane::standalone
