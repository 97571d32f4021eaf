// Writes files of each format and reads them back; the exit status tells the step that failed.
#include <fstream>

#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_face.h"
#include "lipvane/formats/lbp_hierarchy.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/phonemes.h"

int main() {
  std::ofstream out("face.lbp", std::ios::binary);
  lipvane::LbpHeader header;
  header.boneCount = 1;
  header.hierarchy = {{"jaw", "world"}};
  header.headBoneName = "jaw";
  if (!lipvane::WriteLbpHeader(out, header)) return 1;
  lipvane::WriteLbpPoseCount(out, 1);
  lipvane::WriteLbpPoseLabel(out, 0, "Neutral");
  lipvane::WritePoseBoneLines(out, {lipvane::LbpBone{}});
  lipvane::WriteLbpBlankLine(out);
  out.close();

  lipvane::TController controller;
  lipvane::PhonemeMapping mapping;
  if (!lipvane::LoadFace("face.lbp", controller, mapping)) return 2;
  if (!lipvane::ReadLbpHierarchy("face.lbp", lipvane::BoneNameByNumber, lipvane::BoneNumberByName,
                                 lipvane::BoneParentByName)) {
    return 3;
  }
  mapping.WriteLipsincMap("face.map", "face");
  if (!std::ifstream("face.map").good()) return 4;
  lipvane::TAnimation animation;
  if (!lipvane::WriteLtfFile("face.ltf", animation)) return 5;
  return lipvane::LoadLtfFile("face.ltf", animation) ? 0 : 6;
}
