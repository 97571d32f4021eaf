#pragma once

/// How much a count in a file may ask for where the lines of the file do not bound it themselves.
/// Each is far above any real rig and small enough that a hostile file of a few bytes stays cheap.
namespace lipvane {

/// A names line or a mapping row may be short, its missing names and weights still count: 43 rows
/// of this many weights take 11 MB. Real rigs have tens.
inline constexpr int kMaxSpeechTargets = 65536;

/// A file without bones has no lines for its poses: this many empty ones take 24 MB. Real rigs have
/// tens to hundreds.
inline constexpr int kMaxPoses = 1048576;

}  // namespace lipvane
