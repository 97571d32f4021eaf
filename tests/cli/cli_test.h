#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/lbp_text.h"
#include "tests/support/process.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {

using nlohmann::json;
using Arguments = std::vector<std::string>;
/// Arguments or files, and the message that they end in.
using Refusals = std::vector<std::pair<Arguments, std::string>>;

inline const std::string kExamples = LIPVANE_SOURCE_DIR "/examples/";

/// A small face: jaw and lip under head, animated jaw.
inline constexpr char kFaceScene[] = R"(//Maya ASCII 2024 scene
requires maya "2024";
currentUnit -l meter -a degree -t ntsc;
createNode transform -n "head";
createNode joint -n "jaw" -p "head";
	setAttr ".t" -type "double3" 1 2 3 ;
	setAttr ".jo" -type "double3" 0 0 90 ;
createNode joint -n "lip" -p "jaw";
createNode transform -n "left";
createNode joint -n "eye" -p "left";
createNode transform -n "right";
createNode joint -n "eye" -p "right";
createNode animCurveTL -n "jaw_translateX";
	setAttr ".tan" 18;
	setAttr ".wgt" no;
	setAttr -s 2 ".ktv[0:1]"  0 1.5 10 2;
createNode animCurveTA -n "jaw_rotateY";
	setAttr ".tan" 2;
	setAttr -s 1 ".ktv[0]"  0.5 180;
connectAttr "jaw_translateX.o" "jaw.tx";
connectAttr "jaw_rotateY.o" "jaw.ry";
select -ne :time1;
	setAttr ".o" 5;
	setAttr ".unw" 5;
// End of face.ma
)";

/// Runs in a folder of its own.
class CliTest : public testing::Test {
 protected:
  CliTest() { std::filesystem::current_path(folder_.Path()); }
  ~CliTest() override { std::filesystem::current_path(before_); }

  static ProcessResult Lipvane(Arguments arguments, const Arguments& more = {}) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunProcess(LIPVANE_BINARY, arguments);
  }
  /// The work fails with this one message, and nothing else comes out.
  static void ExpectFailure(const Arguments& arguments, const std::string& error,
                            const Arguments& more = {}) {
    const ProcessResult result = Lipvane(arguments, more);
    EXPECT_EQ(result.status, 1) << error;
    EXPECT_EQ(result.err, "Error: " + error + "\n");
    EXPECT_EQ(result.out, "");
  }
  /// Exports poses of a scene of the example's face, and answers the file.
  std::string ExportExample(const std::string& scene, const std::string& poses) const {
    std::string bones = FileContent(kExamples + "bones.txt");
    bones.erase(bones.find('\n'));
    const std::string lbp = folder_.Path("example" + poses + ".lbp");
    const ProcessResult result =
        Lipvane({"run", scene, "-e",
                 "demBonesExportPoses -bl \"" + bones + "\" -hb head -np " + poses + " -lbp \"" +
                     lbp + "\""});
    EXPECT_EQ(result.status, 0) << result.err;
    return lbp;
  }
  /// An animation file with the one track "Eat" of these lines: the number of keys, the keys.
  std::string AnimationOf(const std::string& name, const std::string& lines) const {
    return folder_.Make(name, "LTF\n1\n0\n1\n{\nEat\n" + lines + "\n}\n0\n");
  }
  static bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  TemporaryFolder folder_;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace lipvane::test
