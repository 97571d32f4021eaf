#include "cli/json.h"

#include <nlohmann/json.hpp>

namespace lipvane::cli {
namespace {

/// The library's text of a plain value.
template <typename T>
std::string TextOf(const T& value) {
  using Library = nlohmann::json;
  return Library(value).dump(-1, ' ', false, Library::error_handler_t::replace);
}

}  // namespace

Json::Json(const std::string& text) : text_(TextOf(text)) {}
Json::Json(double number) : text_(TextOf(number)) {}

Json Json::List(std::initializer_list<Json> elements) {
  Json list(0);
  list.text_ = "[]";
  for (const Json& element : elements)
    list.Push(element);
  return list;
}

Json Json::Object(Members members) {
  Json object(0);
  object.text_ = "{}";
  for (const auto& [name, value] : members)
    object.Set(name, value);
  return object;
}

void Json::Push(const Json& element) {
  Add(element.text_);
}

void Json::Set(const std::string& name, const Json& value) {
  Add(TextOf(name) + ":" + value.text_);
}

void Json::Add(const std::string& piece) {
  const char close = text_.back();
  text_.pop_back();
  if (!ends_.empty()) text_ += ',';
  text_ += piece;
  ends_.push_back(text_.size());
  text_ += close;
}

std::vector<std::string_view> Json::Elements() const {
  std::vector<std::string_view> elements;
  std::size_t begin = 1;
  for (const std::size_t end : ends_) {
    elements.push_back(std::string_view(text_).substr(begin, end - begin));
    begin = end + 1;
  }
  return elements;
}

}  // namespace lipvane::cli
