// Plays one bone of a face, thirty frames a second: play_bone FACE.lbp LINE.ltf BONE
// A line a frame: seconds, translation x y z, rotation w x y z.
#include <iostream>
#include <vector>

#include "lipvane/formats/lbp_face.h"
#include "lipvane/formats/ltf.h"

int main(int argc, char** argv) {
  const auto fail = [](const auto&... words) { return (std::cerr << ... << words) << '\n', 1; };
  if (argc != 4) return fail("Usage: play_bone FACE.lbp LINE.ltf BONE");

  lipvane::TController face;
  lipvane::PhonemeMapping mapping;
  lipvane::TAnimation line;
  lipvane::ReadProblem problem;
  const bool hasFace = LoadFace(argv[1], face, mapping, problem);
  if (!hasFace || !LoadLtfFile(argv[2], line, problem))
    return fail(problem.Text(argv[hasFace ? 2 : 1]));

  lipvane::TBonePose pose;
  face.InitializeBones(pose);
  const lipvane::TBonePoseInfo& rig = *face.BonePoseInfo();
  const auto name = [&](int i) {
    return rig.GetBoneName(rig.FindBoneIndex(pose.GetBone(i).boneIndex));
  };
  int bone = 0;
  while (bone < pose.BoneCount() && name(bone) != argv[3])
    ++bone;
  if (bone == pose.BoneCount()) return fail(argv[1], " has no bone ", argv[3]);

  std::vector<double> weights;  // kept from frame to frame
  for (int frame = 0; frame * 1000.0 / 30.0 <= line.length; ++frame) {
    face.UpdateFacialAnim(line, frame * 1000.0 / 30.0, weights, pose);
    const auto& [t, r, id] = pose.GetBone(bone);
    std::cout << frame / 30.0 << "  " << t.x << ' ' << t.y << ' ' << t.z << "  " << r.w << ' '
              << r.x << ' ' << r.y << ' ' << r.z << '\n';
  }
}
