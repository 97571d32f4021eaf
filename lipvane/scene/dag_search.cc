#include "lipvane/scene/dag_search.h"

#include <stdexcept>
#include <utility>

namespace lipvane::scene {

DagSearch::DagSearch(host::Host& host, const std::vector<std::string>& names) : host_(host) {
  const auto iterator = host_.NewDagIterator(status_);
  if (!status_.ok()) {
    host_.PrintStatus(status_, "MItDag constructor");
    return;
  }
  for (const std::string& name : names) {
    matches_.try_emplace(name);
  }
  Walk(*iterator);
  std::size_t visits = 0;
  for (const std::string& name : names) {
    visits += matches_.find(name)->second.size();
    if (visits > kMaxVisits) {
      throw std::length_error("the bones and the nodes of their names make more than " +
                              std::to_string(kMaxVisits) + " pairs");
    }
  }
}

void DagSearch::Walk(host::DagIterator& iterator) {
  for (std::size_t place = 0; !iterator.IsDone(); iterator.Next(), ++place) {
    host::DagPath path;
    host::Status status = iterator.GetPath(path);
    if (!status.ok()) {
      unreadable_.push_back({place, status, "MItDag::getPath"});
      continue;
    }
    host::Node node;
    status = host_.AttachDagNode(path, node);
    if (!status.ok()) {
      unreadable_.push_back({place, status, "MFnDagNode constructor"});
      continue;
    }
    const auto wanted = matches_.find(host_.NodeName(node));
    if (wanted != matches_.end()) {
      wanted->second.push_back({place, std::move(path), std::move(node)});
    }
  }
}

bool DagSearch::ForEach(const std::string& name, const Visitor& visit) const {
  auto unreadable = unreadable_.begin();
  const auto printUpTo = [&](std::size_t place) {
    for (; unreadable != unreadable_.end() && unreadable->place < place; ++unreadable) {
      host_.PrintStatus(unreadable->status, unreadable->label);
    }
  };
  const auto found = matches_.find(name);
  const bool any = found != matches_.end() && !found->second.empty();
  if (any) {
    for (const Match& match : found->second) {
      printUpTo(match.place);
      visit(match.path, match.node);
    }
  }
  printUpTo(static_cast<std::size_t>(-1));
  return any;
}

}  // namespace lipvane::scene
