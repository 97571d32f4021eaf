#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "lipvane/host/host.h"

namespace lipvane::scene {

/// Visits that one search may ask for in all, each name again as often as it is asked for: a file
/// of n bones of one name and a scene of n nodes of it make n * n. A thousand joints in a thousand
/// faces make fewer.
inline constexpr std::size_t kMaxVisits = std::size_t{1} << 20;

/// Finds nodes by short name: one walk over the scene serves any number of names, and each search
/// tells what a walk of its own would have told.
class DagSearch {
 public:
  using Visitor = std::function<void(const host::DagPath& path, const host::Node& node)>;

  /// Walks the scene once, looking for any of these names (exact, case-sensitive). A walk
  /// that cannot be begun is printed with the label "MItDag constructor". Throws std::length_error
  /// when to visit the nodes of all names takes more than kMaxVisits.
  DagSearch(host::Host& host, const std::vector<std::string>& names);

  /// The outcome of beginning the walk.
  const host::Status& status() const { return status_; }

  /// Visits every node of that name in the order of the walk, and prints the nodes that could
  /// not be read where they stand between them. True when a node was visited.
  bool ForEach(const std::string& name, const Visitor& visit) const;

 private:
  struct Match {
    std::size_t place;  // in the walk
    host::DagPath path;
    host::Node node;
  };
  struct Unreadable {
    std::size_t place;
    host::Status status;
    const char* label;
  };

  void Walk(host::DagIterator& iterator);

  host::Host& host_;
  host::Status status_;
  std::unordered_map<std::string, std::vector<Match>> matches_;
  std::vector<Unreadable> unreadable_;
};

}  // namespace lipvane::scene
