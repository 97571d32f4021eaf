// Both commands on whole scenes, their numbers held against matrices calculated here. Further
// scenes are taken from the folder that the environment variable LIPVANE_SCENES names.

#include <Imath/ImathEuler.h>
#include <Imath/ImathMatrix.h>
#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <map>
#include <sstream>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/plugin/registration.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::standalone {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> SceneFiles() {
  std::vector<std::string> files;
  const auto addFolder = [&](const std::string& folder) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() == ".ma") files.push_back(entry.path().string());
    }
  };
  addFolder(LIPVANE_SOURCE_DIR "/tests/data/scenes");
  addFolder(LIPVANE_SOURCE_DIR "/examples");
  if (const char* more = std::getenv("LIPVANE_SCENES")) addFolder(more);
  std::sort(files.begin(), files.end());
  return files;
}

std::string Written(const Scene& scene) {
  std::ostringstream out;
  scene.Write(out);
  return out.str();
}

Imath::V3d ToImath(const Vector& v) {
  return {v[0], v[1], v[2]};
}

Imath::M44d Turn(const Vector& angles, RotateOrder order = RotateOrder::kXyz) {
  constexpr Imath::Eulerd::Order kOrders[] = {Imath::Eulerd::XYZ, Imath::Eulerd::YZX,
                                              Imath::Eulerd::ZXY, Imath::Eulerd::XZY,
                                              Imath::Eulerd::YXZ, Imath::Eulerd::ZYX};
  Imath::Eulerd euler(kOrders[static_cast<std::size_t>(order)]);
  euler.setXYZVector(ToImath(angles));
  return euler.toMatrix44();
}

Imath::M44d Scaling(const Vector& scale) {
  Imath::M44d matrix;
  matrix.setScale(ToImath(scale));
  return matrix;
}

/// A joint's local matrix from its channels.
Imath::M44d JointMatrix(const TransformValues& v) {
  Imath::M44d inverseScale;
  if (v.segmentScaleCompensate) {
    inverseScale = Scaling({1 / v.inverseScale[0], 1 / v.inverseScale[1], 1 / v.inverseScale[2]});
  }
  Imath::M44d translation;
  translation.setTranslation(ToImath(v.translate));
  return Scaling(v.scale) * Turn(v.rotateAxis) * Turn(v.rotate, v.rotateOrder) *
         Turn(v.jointOrient) * inverseScale * translation;
}

/// What the import makes of a file's rotation on a joint of this orientation.
Imath::M44d KeyedRotation(const std::vector<double>& line, const Vector& orient) {
  const Imath::Quatd pose(line[22], line[23], line[24], line[25]);
  Imath::Quatd product = pose * Imath::extractQuat(Turn(orient));
  product.v = -product.v;  // our matrix of a quaternion is the transpose of Imath's
  Imath::M44d matrix = product.toMatrix44();
  Imath::V3d scale, shear;
  Imath::extractAndRemoveScalingAndShear(matrix, scale, shear);
  return matrix;
}

/// The nodes that each bone name finds, in the order of the walk.
using Bones = std::map<std::string, std::vector<NodeId>>;

/// The names that joints bear and nothing else does: those of one joint only, or, where a scene has
/// not three of them, any.
Bones BonesOf(const Scene& scene) {
  constexpr std::size_t kEnough = 3;
  Bones all;
  for (PathId path = 1; path < scene.PathCount(); ++path) {
    all[scene.Name(scene.NodeOf(path))].push_back(scene.NodeOf(path));
  }
  Bones single;
  Bones any;
  for (const auto& [name, nodes] : all) {
    const bool areJoints = std::all_of(nodes.begin(), nodes.end(), [&](NodeId node) {
      return scene.Kind(node) == NodeKind::kJoint;
    });
    if (!areJoints) continue;
    any.emplace(name, nodes);
    if (nodes.size() == 1) single.emplace(name, nodes);
  }
  return single.size() >= kEnough ? single : any;
}

class Scenes : public testing::TestWithParam<std::string> {};

TEST_P(Scenes, AreWrittenAsTheyWereRead) {
  EXPECT_EQ(Written(Scene::Open(GetParam())), test::FileContent(GetParam()));
}

TEST_P(Scenes, KeepTheirPosesThroughExportAndImport) {
  constexpr int kPoses = 2;
  Scene scene = Scene::Open(GetParam());
  const Bones bones = BonesOf(scene);
  if (bones.size() < 3) GTEST_SKIP() << "not three joints to export";

  std::vector<std::string> names;
  std::vector<NodeId> nodes;  // one a bone line
  for (const auto& [name, found] : bones) {
    names.push_back(name);
    nodes.insert(nodes.end(), found.begin(), found.end());
  }
  std::string words;
  for (std::size_t i = 0; i + 1 < names.size(); ++i)
    words += names[i] + " ";
  std::vector<std::vector<TransformValues>> before(kPoses);
  for (int pose = 0; pose < kPoses; ++pose) {
    for (const NodeId node : nodes)
      before[static_cast<std::size_t>(pose)].push_back(scene.ValuesAt(node, 10.0 * pose));
  }

  std::vector<Message> messages;
  Interpreter interpreter(scene, [&](const Message& m) { messages.push_back(m); });
  plugin::InitializePlugin(interpreter);
  const test::TemporaryFolder folder;
  const std::string lbp = folder.Path("out.lbp");
  ASSERT_FALSE(interpreter
                   .Run({"demBonesExportPoses", "-bl", words, "-hb", names.back(), "-lbp", lbp,
                         "-np", std::to_string(kPoses)})
                   .Failed());
  ASSERT_FALSE(interpreter.Run({"facialAnim", "-import", "-lbp", lbp}).Failed());
  const bool areSingle = nodes.size() == names.size();

  // The bone lines are the only ones of 26 numbers.
  std::vector<std::vector<double>> lines;
  std::istringstream file(test::FileContent(lbp));
  for (std::string line; std::getline(file, line);) {
    std::istringstream in(line);
    const std::vector<double> numbers{std::istream_iterator<double>(in),
                                      std::istream_iterator<double>()};
    if (numbers.size() == 26) lines.push_back(numbers);
  }
  ASSERT_EQ(lines.size(), kPoses * nodes.size());
  for (int pose = 0; pose < kPoses; ++pose) {
    for (std::size_t b = 0; b < nodes.size(); ++b) {
      const NodeId node = nodes[b];
      const std::vector<double>& line = lines[static_cast<std::size_t>(pose) * nodes.size() + b];
      const TransformValues& values = before[static_cast<std::size_t>(pose)][b];
      SCOPED_TRACE(scene.Name(node) + " in pose " + std::to_string(pose));
      const Imath::M44d local = JointMatrix(values);
      for (int i = 0; i < 16; ++i) {
        const double expected = local[i / 4][i % 4];
        EXPECT_NEAR(line[static_cast<std::size_t>(i)], expected, 1e-5 * (1 + std::abs(expected)));
      }

      // A name that several nodes bear gives more lines than the file counts: its poses are lost.
      if (!areSingle) continue;
      Vector keyed{};
      bool allKeyed = true;
      for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto rotate = static_cast<Channel>(3 + axis);
        const Curve* curve = scene.CurveOf(node, rotate);
        EXPECT_EQ(curve != nullptr,
                  !scene.IsLocked(node, rotate) && scene.DriverOf(node, rotate) != Driver::kOther);
        if (curve == nullptr) allKeyed = false;
        if (curve != nullptr) keyed[axis] = curve->ValueAt(10.0 * pose);
        const auto translate = static_cast<Channel>(axis);
        if (const Curve* moved = scene.CurveOf(node, translate)) {
          EXPECT_NEAR(moved->ValueAt(10.0 * pose), line[16 + axis],
                      1e-4 * (1 + std::abs(line[16 + axis])));
        }
      }
      if (!allKeyed) continue;
      const Imath::M44d rotation = Turn(keyed);
      EXPECT_TRUE(rotation.equalWithAbsError(KeyedRotation(line, values.jointOrient), 2e-5));
      if (values.scale == Vector{1, 1, 1} && values.inverseScale == Vector{1, 1, 1}) {
        // So a joint of another order or with a rotate axis is keyed with what both make together.
        EXPECT_TRUE(rotation.equalWithAbsError(
            Turn(values.rotateAxis) * Turn(values.rotate, values.rotateOrder), 2e-5));
      }
    }
  }
}

TEST_P(Scenes, ReadBackAsTheyWereSaved) {
  Scene scene = Scene::Open(GetParam());
  for (NodeId node = 1; node < scene.NodeCount(); ++node) {
    if (scene.Kind(node) != NodeKind::kJoint) continue;
    for (std::size_t channel = 0; channel < 6; ++channel) {
      if (!scene.AttachCurve(node, static_cast<Channel>(channel))) continue;
      scene.SetKey(node, static_cast<Channel>(channel), 7.0, 0.125);
    }
  }
  const std::string saved = Written(scene);
  const Scene again = Scene::Parse(saved, "again.ma");
  EXPECT_EQ(Written(again), saved);
  EXPECT_EQ(again.PathCount(), scene.PathCount());
  const auto expected = scene.DrivenChannels();
  const auto driven = again.DrivenChannels();
  ASSERT_EQ(driven.size(), expected.size());
  for (std::size_t i = 0; i < driven.size(); ++i) {
    EXPECT_EQ(driven[i].node, expected[i].node);
    EXPECT_EQ(driven[i].channel, expected[i].channel);
    ASSERT_EQ(driven[i].curve->keys.size(), expected[i].curve->keys.size());
    for (std::size_t k = 0; k < driven[i].curve->keys.size(); ++k) {
      EXPECT_EQ(driven[i].curve->keys[k].time, expected[i].curve->keys[k].time);
      EXPECT_NEAR(driven[i].curve->keys[k].value, expected[i].curve->keys[k].value,
                  1e-12 * (1 + std::abs(expected[i].curve->keys[k].value)));
    }
  }
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
  std::string name = fs::path(info.param).stem().string();
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Files, Scenes, testing::ValuesIn(SceneFiles()), TestName);

}  // namespace
}  // namespace lipvane::standalone
