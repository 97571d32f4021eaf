// Writes files of each format and reads them back.
#include <cstdio>
#include <fstream>
#include <map>
#include <string>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_face.h"
#include "lipvane/formats/lbp_hierarchy.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/phonemes.h"

namespace {

int failures = 0;

void Check(bool held, const char* what) {
  if (!held) {
    std::printf("Failed: %s\n", what);
    ++failures;
  }
}

void BonePoseFile() {
  {
    std::ofstream out("face.lbp", std::ios::binary);
    lipvane::LbpHeader header;
    header.boneCount = 1;
    header.hierarchy = {{"jaw", "world"}};
    header.headBoneName = "jaw";
    Check(lipvane::WriteLbpHeader(out, header), "writing the header");
    lipvane::WriteLbpPoseCount(out, 1);
    lipvane::WriteLbpPoseLabel(out, 0, "Neutral");
    lipvane::WritePoseBoneLines(out, {lipvane::LbpBone{}});
    lipvane::WriteLbpBlankLine(out);
  }
  lipvane::TBonePoseInfo info;
  lipvane::PhonemeMapping mapping;
  Check(lipvane::ReadLbpFile("face.lbp", info, mapping), "reading the poses");
  Check(std::string(lipvane::DefaultPhonemeTable).rfind("Iy ", 0) == 0, "the default table");

  std::map<int, std::string> nameByNumber;
  std::map<std::string, int> numberByName;
  std::map<std::string, std::string> parentByName;
  Check(lipvane::ReadLbpHierarchy("face.lbp", nameByNumber, numberByName, parentByName),
        "reading the hierarchy");

  lipvane::TController controller;
  lipvane::PhonemeMapping mappingOfFace;
  Check(lipvane::LoadFace("face.lbp", controller, mappingOfFace), "loading the face");
  mapping.WriteLipsincMap("face.map", "face");
  Check(std::ifstream("face.map").good(), "writing the phoneme mapping");
}

void AnimationFile() {
  lipvane::TAnimation animation;
  animation.AddTrack(lipvane::TAnimationTrack());
  animation.tracks[0].name = "Eat";
  Check(lipvane::WriteLtfFile("face.ltf", animation), "writing the animation");
  lipvane::TAnimation read;
  Check(lipvane::LoadLtfFile("face.ltf", read), "reading the animation");
}

}  // namespace

int main() {
  BonePoseFile();
  AnimationFile();
  return failures == 0 ? 0 : 1;
}
