#include "lipvane/host/standalone/dag_types.h"

#include <algorithm>
#include <array>

namespace lipvane::standalone {
namespace {

constexpr std::array<std::string_view, 23> kTransforms{
    "transform",
    "joint",
    "ikHandle",
    "ikEffector",
    "lookAt",
    "place3dTexture",
    "dagContainer",
    "fosterParent",
    "assembly",
    "assemblyDefinition",
    "assemblyReference",
    "hikFKJoint",
    "hikIKEffector",
    "hikEffector",
    "hikHandle",
    "hikFloorContactMarker",
    "hikGroundPlane",
    "lodGroup",
    "nucleus",
    "pointEmitter",
    "fluidEmitter",
    "unknownTransform",
    "stereoRigTransform",
};

/// Those whose names do not tell.
constexpr std::array<std::string_view, 45> kShapes{
    "mesh",
    "nurbsCurve",
    "bezierCurve",
    "nurbsSurface",
    "subdiv",
    "camera",
    "stereoRigCamera",
    "imagePlane",
    "locator",
    "dropoffLocator",
    "lattice",
    "baseLattice",
    "clusterHandle",
    "softModHandle",
    "deformBend",
    "deformFlare",
    "deformSine",
    "deformSquash",
    "deformTwist",
    "deformWave",
    "implicitBox",
    "implicitCone",
    "implicitSphere",
    "renderBox",
    "renderCone",
    "renderRect",
    "renderSphere",
    "environmentFog",
    "particle",
    "nParticle",
    "nCloth",
    "nRigid",
    "dynamicConstraint",
    "hairConstraint",
    "hairSystem",
    "follicle",
    "pfxHair",
    "pfxToon",
    "stroke",
    "rigidBody",
    "spring",
    "gpuCache",
    "heightField",
    "orientationMarker",
    "positionMarker",
};

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

template <class List>
bool Contains(const List& list, std::string_view name) {
  return std::find(list.begin(), list.end(), name) != list.end();
}

}  // namespace

bool IsTransformType(std::string_view name) {
  // Constraints and fields of the rig are transforms, some of the simulation are shapes.
  if (IsShapeType(name)) return false;
  return EndsWith(name, "Constraint") || EndsWith(name, "Field") || EndsWith(name, "VarGroup") ||
         Contains(kTransforms, name);
}

bool IsShapeType(std::string_view name) {
  return EndsWith(name, "Shape") || EndsWith(name, "Light") || EndsWith(name, "Dimension") ||
         Contains(kShapes, name);
}

}  // namespace lipvane::standalone
