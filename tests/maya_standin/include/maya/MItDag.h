// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MStatus.h>

#include <memory>

#include "lipvane/host/host.h"

namespace lipvane_standin {

class MItDag {
 public:
  enum TraversalType { kInvalidType = 0, kDepthFirst = 1, kBreadthFirst = 2 };
  MItDag(TraversalType type = kDepthFirst, MFn::Type filter = MFn::kInvalid,
         MStatus* status = nullptr);
  bool isDone(MStatus* status = nullptr) const;
  MStatus next();
  MStatus getPath(MDagPath& path) const;

 private:
  std::unique_ptr<lipvane::host::DagIterator> iterator_;
};

}  // namespace lipvane_standin
