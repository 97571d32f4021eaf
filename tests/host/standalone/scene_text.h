#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/standalone_host.h"
#include "tests/support/embedded_scene.h"

namespace lipvane::standalone {

using test::Written;

inline constexpr const char* kHeader =
    "//Maya ASCII 2024 scene\nrequires maya \"2024\";\n"
    "currentUnit -l centimeter -a degree -t film;\n";

/// A scene of statements, whose quotation marks may be single ones.
inline Scene Read(std::string statements) {
  std::replace(statements.begin(), statements.end(), '\'', '"');
  return Scene::Parse(kHeader + statements, "test.ma");
}

/// The node at the end of a full path.
inline NodeId At(const Scene& scene, const std::string& path) {
  for (PathId i = 0; i < scene.PathCount(); ++i) {
    if (scene.FullPath(i) == path) return scene.NodeOf(i);
  }
  throw std::out_of_range("no node at " + path);
}

/// The place of a full path in a walk of the host.
inline host::DagPath PathTo(StandaloneHost& host, const std::string& wanted) {
  host::Status status;
  const auto iterator = host.NewDagIterator(status);
  host::DagPath path;
  for (PathId id = 0; !iterator->IsDone(); iterator->Next(), ++id) {
    if (host.GetScene().FullPath(id) == wanted && iterator->GetPath(path).ok()) return path;
  }
  throw std::out_of_range("no walk comes to " + wanted);
}

/// The paths behind those of the default cameras.
inline std::vector<std::string> OwnPaths(const Scene& scene) {
  constexpr std::size_t kImplied = 9;
  std::vector<std::string> paths;
  for (PathId i = kImplied; i < scene.PathCount(); ++i)
    paths.push_back(scene.FullPath(i));
  return paths;
}

/// The message of the refusal, or nothing.
inline std::string RefusalOf(const std::string& text) {
  try {
    Scene::Parse(text, "test.ma");
    return "";
  } catch (const SceneError& error) {
    return error.what();
  }
}

}  // namespace lipvane::standalone
