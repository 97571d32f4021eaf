#pragma once

#include <emmintrin.h>

#include <cstddef>

#include "lipvane/engine/wide/blend_loops.h"

namespace lipvane::wide {

/// Four lanes, on every x86-64.
struct Sse2Lanes {
  static constexpr std::size_t kCount = 4;
  static constexpr const char* kName = "SSE2";

  __m128 v;

  /// For each lane, all or nothing; see Select.
  struct Mask {
    __m128 v;

    friend Mask operator&(Mask a, Mask b) { return {_mm_and_ps(a.v, b.v)}; }
    friend Mask operator|(Mask a, Mask b) { return {_mm_or_ps(a.v, b.v)}; }
    /// Lane i is bit i.
    unsigned Bits() const { return static_cast<unsigned>(_mm_movemask_ps(v)); }
  };

  static Sse2Lanes All(float value) { return {_mm_set1_ps(value)}; }
  template <typename Function>
  static Sse2Lanes Each(const Function& value) {
    return {_mm_setr_ps(value(0), value(1), value(2), value(3))};
  }
  static Sse2Lanes Load(const float* from) { return {_mm_loadu_ps(from)}; }
  friend Sse2Lanes operator+(Sse2Lanes a, Sse2Lanes b) { return {_mm_add_ps(a.v, b.v)}; }
  friend Sse2Lanes operator-(Sse2Lanes a, Sse2Lanes b) { return {_mm_sub_ps(a.v, b.v)}; }
  friend Sse2Lanes operator*(Sse2Lanes a, Sse2Lanes b) { return {_mm_mul_ps(a.v, b.v)}; }
  friend Sse2Lanes operator/(Sse2Lanes a, Sse2Lanes b) { return {_mm_div_ps(a.v, b.v)}; }
  friend Sse2Lanes Sqrt(Sse2Lanes a) { return {_mm_sqrt_ps(a.v)}; }
  friend Mask operator<(Sse2Lanes a, Sse2Lanes b) { return {_mm_cmplt_ps(a.v, b.v)}; }
  friend Sse2Lanes Select(Mask mask, Sse2Lanes a, Sse2Lanes b) {
    return {_mm_or_ps(_mm_and_ps(mask.v, a.v), _mm_andnot_ps(mask.v, b.v))};
  }

  /// Column c gets number c of every row; `row(i)` is that of lane i.
  template <typename Row>
  static void LoadRows(const Row& row, Sse2Lanes* columns) {
    for (std::size_t half = 0; half < kRow; half += kCount) {
      __m128 a = _mm_loadu_ps(row(0) + half);
      __m128 b = _mm_loadu_ps(row(1) + half);
      __m128 c = _mm_loadu_ps(row(2) + half);
      __m128 d = _mm_loadu_ps(row(3) + half);
      _MM_TRANSPOSE4_PS(a, b, c, d);
      columns[half] = {a};
      columns[half + 1] = {b};
      columns[half + 2] = {c};
      columns[half + 3] = {d};
    }
  }
  template <typename Row>
  static void StoreRows(const Sse2Lanes* columns, const Row& row) {
    for (std::size_t half = 0; half < kRow; half += kCount) {
      __m128 a = columns[half].v;
      __m128 b = columns[half + 1].v;
      __m128 c = columns[half + 2].v;
      __m128 d = columns[half + 3].v;
      _MM_TRANSPOSE4_PS(a, b, c, d);
      _mm_storeu_ps(row(0) + half, a);
      _mm_storeu_ps(row(1) + half, b);
      _mm_storeu_ps(row(2) + half, c);
      _mm_storeu_ps(row(3) + half, d);
    }
  }
};

}  // namespace lipvane::wide
