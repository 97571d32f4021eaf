#pragma once

#include <cstddef>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "lipvane/host/standalone/scene.h"

namespace lipvane::standalone {

inline constexpr const char* kHeader =
    "//Maya ASCII 2024 scene\nrequires maya \"2024\";\n"
    "currentUnit -l centimeter -a degree -t film;\n";

inline Scene Read(const std::string& statements) {
  return Scene::Parse(kHeader + statements, "test.ma");
}

inline std::string Written(const Scene& scene) {
  std::ostringstream out;
  scene.Write(out);
  return out.str();
}

/// The node at the end of a full path.
inline NodeId At(const Scene& scene, const std::string& path) {
  for (PathId i = 0; i < scene.PathCount(); ++i) {
    if (scene.FullPath(i) == path) return scene.NodeOf(i);
  }
  throw std::out_of_range("no node at " + path);
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
