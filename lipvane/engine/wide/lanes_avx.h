#pragma once

#if defined(__AVX__)

#include <immintrin.h>

#include <cstddef>

#include "lipvane/engine/wide/blend_loops.h"

namespace lipvane::wide {

/// Eight lanes. For files that are built for AVX only.
struct AvxLanes {
  static constexpr std::size_t kCount = 8;
  static constexpr const char* kName = "AVX";

  __m256 v;

  /// For each lane, all or nothing; see Select.
  struct Mask {
    __m256 v;

    friend Mask operator&(Mask a, Mask b) { return {_mm256_and_ps(a.v, b.v)}; }
    friend Mask operator|(Mask a, Mask b) { return {_mm256_or_ps(a.v, b.v)}; }
    /// Lane i is bit i.
    unsigned Bits() const { return static_cast<unsigned>(_mm256_movemask_ps(v)); }
  };

  static AvxLanes All(float value) { return {_mm256_set1_ps(value)}; }
  template <typename Function>
  static AvxLanes Each(const Function& value) {
    return {_mm256_setr_ps(value(0), value(1), value(2), value(3), value(4), value(5), value(6),
                           value(7))};
  }
  static AvxLanes Load(const float* from) { return {_mm256_loadu_ps(from)}; }
  friend AvxLanes operator+(AvxLanes a, AvxLanes b) { return {_mm256_add_ps(a.v, b.v)}; }
  friend AvxLanes operator-(AvxLanes a, AvxLanes b) { return {_mm256_sub_ps(a.v, b.v)}; }
  friend AvxLanes operator*(AvxLanes a, AvxLanes b) { return {_mm256_mul_ps(a.v, b.v)}; }
  friend AvxLanes operator/(AvxLanes a, AvxLanes b) { return {_mm256_div_ps(a.v, b.v)}; }
  friend AvxLanes Sqrt(AvxLanes a) { return {_mm256_sqrt_ps(a.v)}; }
  friend Mask operator<(AvxLanes a, AvxLanes b) { return {_mm256_cmp_ps(a.v, b.v, _CMP_LT_OQ)}; }
  friend AvxLanes Select(Mask mask, AvxLanes a, AvxLanes b) {
    return {_mm256_blendv_ps(b.v, a.v, mask.v)};
  }

  /// Column c gets number c of every row; `row(i)` is that of lane i.
  template <typename Row>
  static void LoadRows(const Row& row, AvxLanes* columns) {
    for (std::size_t i = 0; i < kCount; ++i)
      columns[i] = Load(row(i));
    Transpose(columns);
  }
  template <typename Row>
  static void StoreRows(const AvxLanes* columns, const Row& row) {
    AvxLanes lines[kCount];
    for (std::size_t i = 0; i < kCount; ++i)
      lines[i] = columns[i];
    Transpose(lines);
    for (std::size_t i = 0; i < kCount; ++i)
      _mm256_storeu_ps(row(i), lines[i].v);
  }

 private:
  /// Eight by eight: pairs within the halves of a register, fours, then the halves.
  static void Transpose(AvxLanes* lines) {
    static_assert(kCount == kRow);
    __m256 pairs[kCount];
    for (std::size_t i = 0; i < kCount; i += 2) {
      pairs[i] = _mm256_unpacklo_ps(lines[i].v, lines[i + 1].v);
      pairs[i + 1] = _mm256_unpackhi_ps(lines[i].v, lines[i + 1].v);
    }
    __m256 fours[kCount];
    for (std::size_t i = 0; i < kCount; i += 4) {
      fours[i] = _mm256_shuffle_ps(pairs[i], pairs[i + 2], 0x44);
      fours[i + 1] = _mm256_shuffle_ps(pairs[i], pairs[i + 2], 0xEE);
      fours[i + 2] = _mm256_shuffle_ps(pairs[i + 1], pairs[i + 3], 0x44);
      fours[i + 3] = _mm256_shuffle_ps(pairs[i + 1], pairs[i + 3], 0xEE);
    }
    for (std::size_t i = 0; i < 4; ++i) {
      lines[i] = {_mm256_permute2f128_ps(fours[i], fours[i + 4], 0x20)};
      lines[i + 4] = {_mm256_permute2f128_ps(fours[i], fours[i + 4], 0x31)};
    }
  }
};

}  // namespace lipvane::wide

#endif
