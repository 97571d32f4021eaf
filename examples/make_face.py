#!/usr/bin/env python3
"""Makes the example face: two Maya scenes, the list of bones, a picture of the poses, and a line to
speak: when each sound is heard, and as an animation.

    python3 examples/make_face.py [FOLDER]

writes face_poses.ma, face_rig.ma, bones.txt, hello.TextGrid, hello.ltf and poses.svg into FOLDER
(this script's own folder when none is given). The result depends on nothing but the tables in
facerig/.
"""

import pathlib
import sys

sys.dont_write_bytecode = True  # leaves no __pycache__ in the source tree

from facerig import joints, maya_scene, poses, sheet, solve, spoken_line  # noqa: E402


def main() -> None:
    here = pathlib.Path(__file__).resolve().parent
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else here
    rig = solve.Rig(joints.all_joints())
    posed = {name: rig.pose(actions) for name, actions in poses.POSES.items()}

    files = {
        "face_poses.ma": maya_scene.text("face_poses", rig, list(posed.values())),
        "face_rig.ma": maya_scene.text("face_rig", rig, []),
        "bones.txt": " ".join(bone.name for bone in rig.joints if bone.joint.listed) + "\n",
        "hello.TextGrid": spoken_line.grid(),
        "hello.ltf": spoken_line.animation(),
        "poses.svg": sheet.svg(rig, posed),
    }
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in files.items():
        (folder / name).write_bytes(text.encode("utf-8"))


if __name__ == "__main__":
    main()
