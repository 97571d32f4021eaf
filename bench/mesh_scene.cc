#include "bench/mesh_scene.h"

#include <fstream>
#include <ostream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace lipvane::bench {
namespace {

constexpr int kJoints = 100;
constexpr int kVertices = 5000;
constexpr int kInStatement = 100;

/// The statements of a mesh, in lines as the host breaks them; all meshes share them.
std::string MeshStatements() {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> place(-20.0, 20.0);
  std::uniform_int_distribution<int> vertex(0, kVertices - 1);
  std::ostringstream out;
  out << "\tsetAttr -k off \".v\";\n\tsetAttr \".vir\" yes;\n";
  const auto statements = [&](const char* attribute, const char* type, int perLine, auto element) {
    for (int first = 0; first < kVertices; first += kInStatement) {
      const int last = first + kInStatement - 1;
      out << "\tsetAttr" << (first == 0 ? " -s 5000" : "") << " \"." << attribute << '[' << first
          << ':' << last << "]\"" << type;
      for (int i = first; i <= last; ++i) {
        out << (i > first && (i - first) % perLine == 0 ? "\n\t\t" : " ");
        element();
      }
      out << ";\n";
    }
  };
  out.precision(8);
  statements("vt", " ", 2,
             [&] { out << place(random) << ' ' << place(random) << ' ' << place(random); });
  statements("ed", " ", 8, [&] { out << vertex(random) << ' ' << vertex(random) << " 0"; });
  statements("fc", " -type \"polyFaces\" ", 1, [&] {
    out << "f 4 " << vertex(random) << ' ' << vertex(random) << ' ' << -vertex(random) << ' '
        << vertex(random);
  });
  return out.str();
}

void WriteJoint(std::ostream& out, int number) {
  out << "createNode joint -n \"joint" << number << '"';
  if (number > 0) out << " -p \"joint" << number - 1 << '"';
  out << ";\n\tsetAttr \".t\" -type \"double3\" 1 0.5 0 ;\n"
      << "createNode animCurveTA -n \"joint" << number << "_rx\";\n"
      << "\tsetAttr \".tan\" 18;\n\tsetAttr -s 3 \".ktv[0:2]\"  0 0 10 12.5 20 -3.25;\n";
}

}  // namespace

void WriteMeshScene(const std::string& fileName, std::size_t bytes) {
  const std::string mesh = MeshStatements();
  std::ofstream out(fileName, std::ios::binary);
  out << "//Maya ASCII 2019 scene\nrequires maya \"2019\";\n"
         "currentUnit -l centimeter -a degree -t film;\n";
  for (int joint = 0; joint < kJoints; ++joint)
    WriteJoint(out, joint);
  for (int i = 0; out && static_cast<std::size_t>(out.tellp()) < bytes; ++i) {
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

}  // namespace lipvane::bench
