#pragma once

/// How much a count in a file may ask for where the lines of the file do not bound it themselves.
/// Each is far above any real rig and small enough that a hostile file of a few bytes stays cheap.
namespace lipvane {

/// A names line or a mapping row may be short, its missing names and weights still count: 43 rows
/// of this many weights take 0.7 MB. Real rigs have tens.
inline constexpr int kMaxSpeechTargets = 4096;

/// A file without bones has no lines for its poses: this many empty ones take 1.5 MB. Real rigs
/// have tens to hundreds.
inline constexpr int kMaxPoses = 65536;

/// A line of keys may be short, its missing keys still count: a line of two bytes is 26 keys, of 16
/// bytes each. This many keys of all tracks together, fifteen tracks of over five hours at 60 keys
/// a second, take 268 MB.
inline constexpr int kMaxKeys = 1 << 24;

}  // namespace lipvane
