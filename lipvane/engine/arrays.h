#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

/// How the engine handles its arrays: reads past the end grow them, look-ups answer null.
namespace lipvane {

/// Element `i` of an array that first grows with default elements to hold it. Reads at or past the
/// end never fail; a negative position is std::out_of_range.
template <typename T>
T& Grown(std::vector<T>& array, int i) {
  const auto index = static_cast<std::size_t>(i);
  if (i >= 0 && index >= array.size()) {
    array.resize(index + 1);
  }
  return array.at(index);
}

/// Element `i`, or null when there is none.
template <typename T>
T* ElementOrNull(std::vector<T>& array, int i) {
  const auto index = static_cast<std::size_t>(i);
  return i >= 0 && index < array.size() ? &array[index] : nullptr;
}

/// The first element of exactly this name, or null.
template <typename T>
T* FindNamed(std::vector<T>& array, const std::string& name) {
  const auto found = std::find_if(array.begin(), array.end(),
                                  [&](const T& element) { return element.name == name; });
  return found == array.end() ? nullptr : &*found;
}

/// Destroys the elements of an array, the last first, one by one: the array's own destructor and
/// clear() are noexcept and would not let a failure of an element's destructor out.
template <typename T>
void DestroyElements(std::vector<T>& array) {
  while (!array.empty()) {
    array.erase(array.end() - 1);
  }
}

}  // namespace lipvane
