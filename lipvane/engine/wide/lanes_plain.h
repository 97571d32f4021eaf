#pragma once

#include <cmath>
#include <cstddef>
#include <cstring>

#include "lipvane/engine/wide/blend_loops.h"

namespace lipvane::wide {

/// Four lanes without a processor's own instructions.
struct PlainLanes {
  static constexpr std::size_t kCount = 4;
  static constexpr const char* kName = "plain";

  float v[kCount];

  /// For each lane, all or nothing; see Select.
  struct Mask {
    bool v[kCount];

    friend Mask operator&(const Mask& a, const Mask& b) {
      Mask result;
      for (std::size_t i = 0; i < kCount; ++i)
        result.v[i] = a.v[i] && b.v[i];
      return result;
    }
    friend Mask operator|(const Mask& a, const Mask& b) {
      Mask result;
      for (std::size_t i = 0; i < kCount; ++i)
        result.v[i] = a.v[i] || b.v[i];
      return result;
    }
    /// Lane i is bit i.
    unsigned Bits() const {
      unsigned bits = 0;
      for (std::size_t i = 0; i < kCount; ++i)
        bits |= (v[i] ? 1U : 0U) << i;
      return bits;
    }
  };

  template <typename Function>
  static PlainLanes Each(const Function& function) {
    PlainLanes result;
    for (std::size_t i = 0; i < kCount; ++i)
      result.v[i] = function(i);
    return result;
  }
  static PlainLanes All(float value) {
    return Each([&](std::size_t /*i*/) { return value; });
  }
  static PlainLanes Load(const float* from) {
    return Each([&](std::size_t i) { return from[i]; });
  }
  friend PlainLanes operator+(const PlainLanes& a, const PlainLanes& b) {
    return Each([&](std::size_t i) { return a.v[i] + b.v[i]; });
  }
  friend PlainLanes operator-(const PlainLanes& a, const PlainLanes& b) {
    return Each([&](std::size_t i) { return a.v[i] - b.v[i]; });
  }
  friend PlainLanes operator*(const PlainLanes& a, const PlainLanes& b) {
    return Each([&](std::size_t i) { return a.v[i] * b.v[i]; });
  }
  friend PlainLanes operator/(const PlainLanes& a, const PlainLanes& b) {
    return Each([&](std::size_t i) { return a.v[i] / b.v[i]; });
  }
  friend PlainLanes Sqrt(const PlainLanes& a) {
    return Each([&](std::size_t i) { return std::sqrt(a.v[i]); });
  }
  friend Mask operator<(const PlainLanes& a, const PlainLanes& b) {
    Mask result;
    for (std::size_t i = 0; i < kCount; ++i)
      result.v[i] = a.v[i] < b.v[i];
    return result;
  }
  friend PlainLanes Select(const Mask& mask, const PlainLanes& a, const PlainLanes& b) {
    return Each([&](std::size_t i) { return mask.v[i] ? a.v[i] : b.v[i]; });
  }

  /// Column c gets number c of every row; `row(i)` is that of lane i. Copied, since the last one is
  /// no float.
  template <typename Row>
  static void LoadRows(const Row& row, PlainLanes* columns) {
    for (std::size_t i = 0; i < kCount; ++i) {
      for (std::size_t c = 0; c < kRow; ++c)
        std::memcpy(&columns[c].v[i], row(i) + c, sizeof(float));
    }
  }
  template <typename Row>
  static void StoreRows(const PlainLanes* columns, const Row& row) {
    for (std::size_t i = 0; i < kCount; ++i) {
      for (std::size_t c = 0; c < kRow; ++c)
        std::memcpy(row(i) + c, &columns[c].v[i], sizeof(float));
    }
  }
};

}  // namespace lipvane::wide
