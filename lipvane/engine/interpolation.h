#pragma once

namespace lipvane {

// Between rotations of this cosine and more there is nothing to interpolate,
inline constexpr float kSameRotation = 0.99999988079071044921875F;
// from here on it goes along the chord, else along the arc,
inline constexpr float kLinear = 0.55F;
// and a result of a smaller squared length has no direction.
inline constexpr float kShortestSquared = 1e-5F;

}  // namespace lipvane
