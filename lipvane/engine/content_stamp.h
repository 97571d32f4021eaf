#pragma once

#include <memory>
#include <utility>

namespace lipvane {

/// Tells whether a content is still what it was without a look at it: whoever made something of it
/// keeps its mark and compares. The owner of the content says when it changes it itself (Changed)
/// and when it gives out a reference through which others may (Lent), after which it can never tell
/// again. Copies of the content are the same content; a content that is moved takes its references
/// along.
class ContentStamp {
 public:
  /// Of one content only: while someone holds it, no other has the same. Null: cannot tell.
  using Mark = std::shared_ptr<const char>;

  ContentStamp() = default;
  ContentStamp(const ContentStamp& other) : mark_(other.mark_) {}
  ContentStamp(ContentStamp&& other) noexcept
      : mark_(std::move(other.mark_)), isLent_(other.isLent_) {}
  /// References into the content that is replaced may lead to what replaces it: it stays lent.
  ContentStamp& operator=(const ContentStamp& other) {
    if (this != &other) mark_ = isLent_ ? nullptr : other.mark_;
    return *this;
  }
  ContentStamp& operator=(ContentStamp&& other) noexcept {
    mark_ = std::move(other.mark_);
    isLent_ = other.isLent_;
    return *this;
  }
  ~ContentStamp() = default;

  void Changed() { mark_ = nullptr; }
  void Lent() {
    mark_ = nullptr;
    isLent_ = true;
  }
  /// The mark of the content as it is, made when first asked for.
  const Mark& Current() {
    if (mark_ == nullptr && !isLent_) mark_ = std::make_shared<const char>();
    return mark_;
  }

 private:
  Mark mark_;
  bool isLent_ = false;
};

}  // namespace lipvane
