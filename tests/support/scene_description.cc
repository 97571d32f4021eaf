#include "tests/support/scene_description.h"

#include <sstream>

namespace lipvane::test {
namespace {

void AppendCurve(std::ostringstream& out, const NodeDescription& node, std::size_t number,
                 bool rotates, std::size_t axis) {
  const char letter = "xyz"[axis];
  const std::string curve =
      NameOf(node) + std::to_string(number) + (rotates ? "_r" : "_t") + letter;
  out << "createNode animCurveT" << (rotates ? 'A' : 'L') << " -n \"" << curve << "\";\n"
      << "\tsetAttr \".tan\" 18;\n\tsetAttr \".wgt\" no;\n"
      << "\tsetAttr -s " << node.frames.size() << " \".ktv[0:" << node.frames.size() - 1 << "]\" ";
  for (const auto& [frame, stand] : node.frames) {
    out << ' ' << frame << ' ' << (rotates ? stand.rotate : stand.translate)[axis];
  }
  out << ";\n";
  std::string source = curve + ".o";
  const auto connect = [&](const std::string& to) {
    out << "connectAttr \"" << source << "\" \"" << to << "\";\n";
  };
  const auto found =
      node.between.find((rotates ? "rotate" : "translate") + std::string(1, "XYZ"[axis]));
  const auto way = found == node.between.end() ? std::vector<std::string>() : found->second;
  for (auto type = way.rbegin(); type != way.rend(); ++type) {
    const bool isSet = *type == "character";
    const std::string element = rotates ? ".av[2]" : ".lv[2]";
    const std::string name = curve + std::to_string(way.rend() - type);
    out << "createNode " << *type << " -n \"" << name << "\";\n";
    connect(name + (isSet ? element : ".i"));
    source = name + (isSet ? element : ".o");
  }
  connect(node.path + (rotates ? ".r" : ".t") + letter);
}

}  // namespace

std::string NameOf(const NodeDescription& node) {
  return node.path.substr(node.path.rfind('|') + 1);
}

std::string ParentPathOf(const NodeDescription& node) {
  return node.path.substr(0, node.path.rfind('|'));
}

std::string MayaAscii(const SceneDescription& scene) {
  std::ostringstream out;
  out.precision(17);
  out << "//Maya ASCII 2024 scene\nrequires maya \"2024\";\n"
      << "currentUnit -l centimeter -a degree -t film;\n";
  for (const NodeDescription& node : scene) {
    out << "createNode " << node.type << " -n \"" << NameOf(node) << '"';
    if (!ParentPathOf(node).empty()) out << " -p \"" << ParentPathOf(node) << '"';
    out << ";\n";
    if (node.type == "mesh") continue;
    const auto triple = [&](const char* attribute, const Triple& v) {
      out << "\tsetAttr \"." << attribute << "\" -type \"double3\" " << v[0] << ' ' << v[1] << ' '
          << v[2] << " ;\n";
    };
    triple("t", node.stand.translate);
    triple("r", node.stand.rotate);
    if (node.type == "joint") triple("jo", node.orient);
  }
  for (const NodeDescription& node : scene) {
    for (const auto& [channel, driver] : node.drivers) {
      out << "createNode multiplyDivide -n \"" << driver << "\";\nconnectAttr \"" << driver
          << ".ox\" \"" << node.path << '.' << channel << "\";\n";
    }
  }
  std::size_t number = 0;
  for (const NodeDescription& node : scene) {
    ++number;
    if (node.frames.empty()) continue;
    for (std::size_t axis = 0; axis < 3; ++axis)
      AppendCurve(out, node, number, false, axis);
    for (std::size_t axis = 0; axis < 3; ++axis)
      AppendCurve(out, node, number, true, axis);
  }
  out << "// End of scene.ma\n";
  return out.str();
}

}  // namespace lipvane::test
