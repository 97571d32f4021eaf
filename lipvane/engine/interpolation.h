#pragma once

/// The bounds by which a step of a blend chooses how to interpolate. No functions here: they would
/// be compiled with whatever instructions the files in wide/ are built for.
namespace lipvane {

/// Above this cosine two rotations are the same: nothing is interpolated.
inline constexpr float kSameRotation = 0.99999988079071044921875F;
/// Above this cosine it goes along the chord, else along the arc.
inline constexpr float kLinear = 0.55F;
/// A sum of a smaller squared length has no direction.
inline constexpr float kShortestSquared = 1e-5F;

}  // namespace lipvane
