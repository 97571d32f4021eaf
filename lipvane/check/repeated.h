#pragma once

#include <cstddef>
#include <string>

namespace lipvane::check {

/// Of findings that are one defect met again and again: the first, and how many there are.
struct Repeated {
  std::size_t line = 0;
  std::string text;
  std::size_t count = 0;

  void Add(std::size_t atLine, const std::string& itsText) {
    if (count++ > 0) return;
    line = atLine;
    text = itsText;
  }
};

}  // namespace lipvane::check
