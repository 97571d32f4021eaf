// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MTypes.h>

#include <memory>

namespace lipvane_standin {

class MObject {
 public:
  MObject();
  bool isNull() const;

  // The stand-in's own.
  using Content = std::shared_ptr<const standin::Content>;
  explicit MObject(Content content);
  const Content& Held() const { return content_; }

 private:
  Content content_;
};

}  // namespace lipvane_standin
