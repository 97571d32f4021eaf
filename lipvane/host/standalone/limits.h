#pragma once

#include <cstddef>
#include <cstdint>

/// Bounds against hostile files, all far above any real scene.
namespace lipvane::standalone {

/// Nodes of one scene: their numbers are kept in 32 bits, and the upper half means names that no
/// node of the file bears.
inline constexpr std::size_t kMaxNodes = std::size_t{1} << 28;

/// Paths of one scene beyond one for each node: n instances one below the other make 2^n.
inline constexpr std::size_t kMaxInstancePaths = std::size_t{1} << 21;

/// Greatest index of an array attribute, so that an index and a kind of attribute fit one number.
inline constexpr std::uint64_t kMaxIndex = (std::uint64_t{1} << 28) - 1;

/// Nodes that the value of one channel may come through; connections may form a ring.
inline constexpr int kMaxDriverSteps = 256;

/// Nodes and names looked at in all to find out which one a name means that many share, and which
/// name is free; by a command, to find those that its names mean.
inline constexpr std::size_t kMaxNameSearch = std::size_t{1} << 24;

/// Further edges gone through in all to rename nodes that have several parents; of a long name some
/// bytes count as one.
inline constexpr std::size_t kMaxEdgesRenamed = std::size_t{1} << 24;

/// Paths of one name compared for its shortest unique form; with more the full path is given.
inline constexpr std::size_t kMaxRivals = 1000;

/// Bytes of a path or a name in a message; of a longer one a part is shown. Messages may be many,
/// and the path or the name as long as the file.
inline constexpr std::size_t kMaxShownPath = 1000;

/// Bytes of all paths in one file that is written: n nodes one below the other have paths of n * n
/// / 2 names.
inline constexpr std::size_t kMaxPathBytes = std::size_t{1} << 28;

/// Reading notes kept; what follows is only counted.
inline constexpr std::size_t kMaxNotes = 100;

}  // namespace lipvane::standalone
