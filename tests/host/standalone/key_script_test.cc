#include "lipvane/host/standalone/key_script.h"

#include <gtest/gtest.h>

#include <sstream>

#include "lipvane/host/standalone/units.h"
#include "tests/host/standalone/scene_text.h"

namespace lipvane::standalone {
namespace {

std::string ScriptOf(const Scene& scene, const std::vector<KeyedNode>& nodes,
                     const std::string& nameSpace) {
  std::ostringstream out;
  WriteKeyScript(scene, nodes, {"Keys of \"a\nb\"", nameSpace, 25}, out);
  return out.str();
}

TEST(KeyScript, NamesNodesAsShortlyAsIsUniqueInANamespace) {
  Scene scene = Read(
      "createNode joint -n 'head';\ncreateNode joint -n 'eye' -p 'head';\n"
      "createNode joint -n 'other';\ncreateNode joint -n 'eye' -p 'other';\n");
  const NodeId eye = At(scene, "|head|eye");
  for (const double frame : {0.0, 1.0, 2.0, 3.0}) {
    ASSERT_TRUE(scene.AttachCurve(eye, Channel::kRotateY));
    scene.SetKey(eye, Channel::kRotateY, frame, frame * kRadiansPerDegree);
  }
  const std::string script =
      ScriptOf(scene, {{eye, {Channel::kRotateX, Channel::kRotateY}, {0.5, 1, 3}}}, "hero");
  EXPECT_EQ(script.substr(0, script.find('.')), "// Keys of \"a\\nb\"");
  EXPECT_NE(script.find("for frames at 25 a second"), script.npos);
  EXPECT_EQ(script.substr(script.find("getAttr")),
            "getAttr \"hero:head|hero:eye.rotateY\";\n"
            "undoInfo -openChunk;\n"
            "setKeyframe -t 1 -v 1 -itt auto -ott auto -at rotateY \"hero:head|hero:eye\";\n"
            "setKeyframe -t 3 -v 3 -itt auto -ott auto -at rotateY \"hero:head|hero:eye\";\n"
            "undoInfo -closeChunk;\n");
}

TEST(KeyScript, RefusesANameThatWouldStandForOthers) {
  const Scene scene = Read("createNode joint -n 'e*';\ncreateNode joint -n 'eye';\n");
  EXPECT_THROW(ScriptOf(scene, {{At(scene, "|e*"), {}, {}}}, ""), SceneError);
}

}  // namespace
}  // namespace lipvane::standalone
