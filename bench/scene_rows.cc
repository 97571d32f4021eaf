#include <benchmark/benchmark.h>

#include <cstddef>
#include <fstream>
#include <memory>
#include <ostream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/naive/files.h"
#include "bench/rows.h"
#include "lipvane/host/standalone/scene.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::bench {
namespace {

constexpr std::size_t kSceneBytes = 100'000'000;
constexpr int kJoints = 100;
constexpr int kElements = 5000;
constexpr int kInStatement = 100;

/// Appends setAttr statements for the elements of an attribute; the host breaks lines likewise.
template <typename Element>
void AppendStatements(std::ostream& out, const char* attribute, const char* type,
                      int elementsInLine, Element element) {
  for (int first = 0; first < kElements; first += kInStatement) {
    out << "\tsetAttr \"" << attribute << '[' << first << ':' << first + kInStatement - 1 << "]\""
        << type;
    for (int i = 0; i < kInStatement; ++i)
      out << (i % elementsInLine == 0 ? "\n\t\t" : " ") << element();
    out << ";\n";
  }
}

/// What all meshes say: vertices, edges, faces.
std::string MeshStatements() {
  std::mt19937 random(5);
  const auto place = [&] {
    return std::to_string(std::uniform_real_distribution<double>(-20.0, 20.0)(random)) + " ";
  };
  const auto vertex = [&] {
    return std::to_string(std::uniform_int_distribution<int>(0, kElements - 1)(random)) + " ";
  };
  std::ostringstream out;
  AppendStatements(out, ".vt", "", 2, [&] { return place() + place() + place(); });
  AppendStatements(out, ".ed", "", 8, [&] { return vertex() + vertex() + "0"; });
  AppendStatements(out, ".fc", " -type \"polyFaces\" ", 1,
                   [&] { return "f 4 " + vertex() + vertex() + vertex() + vertex(); });
  return out.str();
}

void WriteJoint(std::ostream& out, int number) {
  out << "createNode joint -n \"joint" << number << '"';
  if (number > 0) out << " -p \"joint" << number - 1 << '"';
  out << ";\n\tsetAttr \".t\" -type \"double3\" 1 0.5 0 ;\n"
      << "createNode animCurveTA -n \"joint" << number << "_rx\";\n"
      << "\tsetAttr \".tan\" 18;\n\tsetAttr -s 3 \".ktv[0:2]\"  0 0 10 12.5 20 -3.25;\n";
}

/// Writes a Maya ASCII scene: a chain of keyed joints, and for the rest meshes.
void WriteScene(const std::string& fileName) {
  const std::string mesh = MeshStatements();
  std::ofstream out(fileName, std::ios::binary);
  out << "//Maya ASCII 2019 scene\nrequires maya \"2019\";\n"
         "currentUnit -l centimeter -a degree -t film;\n";
  for (int joint = 0; joint < kJoints; ++joint)
    WriteJoint(out, joint);
  for (int i = 0; out && static_cast<std::size_t>(out.tellp()) < kSceneBytes; ++i) {
    out << "createNode transform -n \"mesh" << i << "\";\n"
        << "createNode mesh -n \"meshShape" << i << "\" -p \"mesh" << i << "\";\n"
        << mesh;
  }
  for (int joint = 0; joint < kJoints; ++joint)
    out << "connectAttr \"joint" << joint << "_rx.o\" \"joint" << joint << ".rx\";\n";
  out << "// End of scene\n";
  out.close();
  if (!out) throw std::runtime_error(fileName + ": the scene could not be written");
}

Contenders Opening() {
  const auto folder = std::make_shared<test::TemporaryFolder>();
  const std::string name = folder->Path("meshes.ma");
  WriteScene(name);
  return {{"open scene",
           [folder, name] { benchmark::DoNotOptimize(standalone::Scene::Open(name).NodeCount()); }},
          {"count line feeds",
           [folder, name] { benchmark::DoNotOptimize(naive::CountLineFeeds(name)); }}};
}

}  // namespace

std::vector<Row> SceneRows() {
  return {{"scene of 100 MB, open to read and count", Ratio::kTime, 4.0, 2.0, Opening}};
}

}  // namespace lipvane::bench
