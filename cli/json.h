#pragma once

#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lipvane/engine/math.h"

namespace lipvane::cli {

/// A JSON value as its text on one line, always valid: numbers read back as the values they were
/// printed from, those that are not finite are null, and bytes that are not UTF-8 become
/// replacement characters. Text takes a fraction of what a tree of values does, and none to be
/// destroyed: the library's trees end the program when there is no memory for that.
class Json {
 public:
  using Members = std::initializer_list<std::pair<const char*, Json>>;

  // NOLINTBEGIN(google-explicit-constructor): lists of members are read as JSON
  Json(const char* text) : Json(std::string(text)) {}
  Json(const std::string& text);
  Json(double number);
  Json(bool value) : text_(value ? "true" : "false") {}
  Json(int number) : text_(std::to_string(number)) {}
  Json(long long number) : text_(std::to_string(number)) {}
  Json(std::size_t number) : text_(std::to_string(number)) {}
  /// A list.
  template <typename T>
  Json(const std::vector<T>& values) : Json(List()) {
    for (const T& value : values)
      Push(value);
  }
  /// An object.
  template <typename T>
  Json(const std::map<std::string, T>& values) : Json(Object()) {
    for (const auto& [name, value] : values)
      Set(name, value);
  }
  // NOLINTEND(google-explicit-constructor)

  static Json List(std::initializer_list<Json> elements = {});
  /// Its members stay in the order in which they were given, each name once.
  static Json Object(Members members = {});

  /// Adds an element to a list.
  void Push(const Json& element);
  /// Adds a member to an object.
  void Set(const std::string& name, const Json& value);

  const std::string& Text() const { return text_; }
  /// Of a list, the texts of its elements; they live as long as it is not changed.
  std::vector<std::string_view> Elements() const;

 private:
  void Add(const std::string& piece);

  std::string text_;
  std::vector<std::size_t> ends_;  // of the elements or members in the text
};

inline Json VectorJson(const Vector3& v) {
  return Json::List({double{v.x}, double{v.y}, double{v.z}});
}
/// w, x, y, z.
inline Json RotationJson(const Quaternion& q) {
  return Json::List({double{q.w}, double{q.x}, double{q.y}, double{q.z}});
}

}  // namespace lipvane::cli
