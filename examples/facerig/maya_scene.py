"""Writes the rig as a Maya ASCII scene, in the host's own order and words."""

import uuid

from .joints import GROUP
from .solve import CHANNELS, Pose, Rig

FRAMES_PER_POSE = 10
SHORT = {"translateX": "tx", "translateY": "ty", "translateZ": "tz",
         "rotateX": "rx", "rotateY": "ry", "rotateZ": "rz"}  # fmt: skip
_NAMESPACE = uuid.UUID("b0f6bd6c-4a5b-5c0e-9d6e-3a1f6f0f7c11")

_CAMERAS = [
    # name, translate, rotate, attributes of the shape, view set flag
    ("persp", "22 168 48", "-7 25 0", ['setAttr ".fl" 34.999999999999993;',
                                       'setAttr ".coi" 52.5;'], "p"),
    ("top", "0 1000.1 0", "-90 0 0", ['setAttr ".rnd" no;', 'setAttr ".coi" 1000.1;',
                                      'setAttr ".ow" 30;'], "t"),
    ("front", "0 160 1000.1", None, ['setAttr ".rnd" no;', 'setAttr ".coi" 1000.1;',
                                     'setAttr ".ow" 30;'], "f"),
    ("side", "1000.1 160 0", "0 90 0", ['setAttr ".rnd" no;', 'setAttr ".coi" 1000.1;',
                                        'setAttr ".ow" 30;'], "s"),
]  # fmt: skip

_SELECTIONS = """\
select -ne :time1;
	setAttr ".o" 0;
select -ne :hardwareRenderingGlobals;
	setAttr ".fprt" yes;
select -ne :renderPartition;
	setAttr -s 2 ".st";
select -ne :renderGlobalsList1;
select -ne :defaultShaderList1;
	setAttr -s 5 ".s";
select -ne :postProcessList1;
	setAttr -s 2 ".p";
select -ne :defaultRenderingList1;
select -ne :initialShadingGroup;
	setAttr ".ro" yes;
select -ne :initialParticleSE;
	setAttr ".ro" yes;
select -ne :defaultResolution;
	setAttr ".pa" 1;
select -ne :hardwareRenderGlobals;
	setAttr ".ctrs" 256;
	setAttr ".btrs" 512;"""

_LINKS = """\
relationship "link" ":lightLinker1" ":initialShadingGroup.message" ":defaultLightSet.message";
relationship "link" ":lightLinker1" ":initialParticleSE.message" ":defaultLightSet.message";
relationship "shadowLink" ":lightLinker1" ":initialShadingGroup.message" ":defaultLightSet.message";
relationship "shadowLink" ":lightLinker1" ":initialParticleSE.message" ":defaultLightSet.message";
connectAttr "layerManager.dli[0]" "defaultLayer.id";
connectAttr "renderLayerManager.rlmi[0]" "defaultRenderLayer.rlid";
connectAttr "defaultRenderLayer.msg" ":defaultRenderingList1.r" -na;"""


def number(value: float) -> str:
    text = f"{value:.6f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def triple(values) -> str:
    return " ".join(number(value) for value in values)


def _node(kind: str, name: str, parent: str = "", shared: bool = False) -> list[str]:
    shared_flag = " -s" if shared else ""
    parent_flag = f' -p "{parent}"' if parent else ""
    identity = str(uuid.uuid5(_NAMESPACE, name)).upper()
    return [
        f'createNode {kind}{shared_flag} -n "{name}"{parent_flag};',
        f'\trename -uid "{identity}";',
    ]


def _cameras() -> list[str]:
    lines = []
    for name, translate, rotate, shape, view in _CAMERAS:
        lines += _node("transform", name, shared=True)
        lines += ['\tsetAttr ".v" no;', f'\tsetAttr ".t" -type "double3" {translate} ;']
        if rotate:
            lines.append(f'\tsetAttr ".r" -type "double3" {rotate} ;')
        lines += _node("camera", f"{name}Shape", name, shared=True)
        lines.append('\tsetAttr -k off ".v" no;')
        lines += [f"\t{line}" for line in shape]
        lines += [
            f'\tsetAttr ".imn" -type "string" "{name}";',
            f'\tsetAttr ".den" -type "string" "{name}_depth";',
            f'\tsetAttr ".man" -type "string" "{name}_mask";',
            f'\tsetAttr ".hc" -type "string" "viewSet -{view} %camera";',
        ]
        if name != "persp":
            lines.append('\tsetAttr ".o" yes;')
    return lines


def _moving(rig: Rig, poses: list[Pose]) -> dict[str, list[int]]:
    """For each joint the channels that differ in any pose, as indices into CHANNELS."""
    return {
        bone.name: [
            channel
            for channel in range(len(CHANNELS))
            if len({pose.channels[bone.name][channel] for pose in poses}) > 1
        ]
        for bone in rig.joints
    }


def _joints(rig: Rig, moving: dict[str, list[int]]) -> list[str]:
    lines = _node("transform", GROUP)
    for bone in rig.joints:
        lines += _node("joint", bone.name, rig.parents[bone.name])
        # A triple that curves drive as a whole is left to them; of one driven in part, the
        # driven components are marked.
        driven = [channel for channel in moving[bone.name] if channel < 3]
        if len(driven) < 3:
            lines.append(f'\tsetAttr ".t" -type "double3" {triple(rig.translate[bone.name])} ;')
            lines += [f'\tsetAttr -av ".{SHORT[CHANNELS[channel]]}";' for channel in driven]
        lines += [
            '\tsetAttr ".mnrl" -type "double3" -360 -360 -360 ;',
            '\tsetAttr ".mxrl" -type "double3" 360 360 360 ;',
            f'\tsetAttr ".jo" -type "double3" {triple(rig.orient[bone.name])} ;',
            f'\tsetAttr ".radi" {number(bone.joint.radius)};',
        ]
    return lines


def _managers(last_frame: int) -> list[str]:
    lines = _node("lightLinker", "lightLinker1", shared=True)
    lines += ['\tsetAttr -s 2 ".lnk";', '\tsetAttr -s 2 ".slnk";']
    for kind, name in (
        ("shapeEditorManager", "shapeEditorManager"),
        ("poseInterpolatorManager", "poseInterpolatorManager"),
        ("displayLayerManager", "layerManager"),
        ("displayLayer", "defaultLayer"),
        ("renderLayerManager", "renderLayerManager"),
        ("renderLayer", "defaultRenderLayer"),
    ):
        lines += _node(kind, name)
    lines.append('\tsetAttr ".g" yes;')
    lines += _node("script", "sceneConfigurationScriptNode")
    playback = f"playbackOptions -min 0 -max {last_frame} -ast 0 -aet {last_frame} "
    lines += [f'\tsetAttr ".b" -type "string" "{playback}";', '\tsetAttr ".st" 6;']
    return lines


def _curves(moving: dict[str, list[int]], poses: list[Pose]) -> list[str]:
    lines = []
    for name, channels in moving.items():
        for channel in channels:
            kind = "animCurveTL" if channel < 3 else "animCurveTA"
            keys = " ".join(
                f"{FRAMES_PER_POSE * i} {number(pose.channels[name][channel])}"
                for i, pose in enumerate(poses)
            )
            lines += _node(kind, f"{name}_{CHANNELS[channel]}")
            lines += [
                '\tsetAttr ".tan" 18;',
                '\tsetAttr ".wgt" no;',
                f'\tsetAttr -s {len(poses)} ".ktv[0:{len(poses) - 1}]"  {keys};',
            ]
    return lines


def _connections(rig: Rig, moving: dict[str, list[int]]) -> list[str]:
    lines = []
    for bone in rig.joints:
        parent = rig.parents[bone.name]
        if parent != GROUP:
            lines.append(f'connectAttr "{parent}.s" "{bone.name}.is";')
        for channel in (CHANNELS[index] for index in moving[bone.name]):
            lines.append(f'connectAttr "{bone.name}_{channel}.o" "{bone.name}.{SHORT[channel]}";')
    return lines


def text(name: str, rig: Rig, poses: list[Pose]) -> str:
    """The scene; without poses, the rig as it stands."""
    moving = _moving(rig, poses)
    last_frame = FRAMES_PER_POSE * (len(poses) - 1) if poses else 190
    lines = [
        "//Maya ASCII 2024 scene",
        f"//Name: {name}.ma",
        "//Codeset: UTF-8",
        'requires maya "2024";',
        "currentUnit -l centimeter -a degree -t film;",
        'fileInfo "application" "maya";',
        'fileInfo "product" "Maya 2024";',
        'fileInfo "version" "2024";',
    ]
    lines += _cameras() + _joints(rig, moving) + _managers(last_frame) + _curves(moving, poses)
    lines += _SELECTIONS.split("\n") + _connections(rig, moving) + _LINKS.split("\n")
    lines.append(f"// End of {name}.ma")
    return "\n".join(lines) + "\n"
