"""The twenty poses, each a sum of weighted actions of the face.

An action says how far each joint goes at weight 1, in face space: centimetres beyond where the
jaw or the parent carries the joint, and a turn in degrees about the face's axes (right-handed: a
turn about +x tips the front down). Paired joints are given for the left side and mirrored. An
action with ".left" or ".right" behind its name moves that side alone.
"""

from dataclasses import dataclass

from .joints import Vector


@dataclass(frozen=True)
class Go:
    move: Vector = (0.0, 0.0, 0.0)
    turn: Vector = (0.0, 0.0, 0.0)


def go(x=0.0, y=0.0, z=0.0, turn=(0.0, 0.0, 0.0)) -> Go:
    return Go((x, y, z), turn)


ACTIONS: dict[str, dict[str, Go]] = {
    # Ten degrees of jaw, which also slides a little forward in its joint.
    "open": {
        "jaw": go(0, -0.06, 0.12, turn=(10, 0, 0)),
        "cheek": go(-0.12, 0, 0.02),
    },
    # The corners drawn outwards and back along the teeth.
    "stretch": {
        "lip_corner": go(0.75, 0.20, -0.55, turn=(0, 10, 6)),
        "lip_upper_outer": go(0.42, 0.08, -0.25, turn=(0, 6, 0)),
        "lip_upper_inner": go(0.16, 0.02, -0.10),
        "lip_upper": go(0, 0.0, -0.06),
        "lip_lower_outer": go(0.45, 0.12, -0.25, turn=(0, 6, 0)),
        "lip_lower_inner": go(0.18, 0.03, -0.10),
        "lip_lower": go(0, 0.0, -0.06),
        "fold": go(0.28, 0.14, -0.05, turn=(0, 4, 0)),
        "cheek": go(0.22, 0.18, 0.05),
        "cheek_upper": go(0.06, 0.14, 0.08),
    },
    # The ring of the lips drawn together and forward.
    "pucker": {
        "lip_corner": go(-1.30, 0.0, 0.75, turn=(0, -20, 0)),
        "lip_upper_outer": go(-0.82, 0.03, 0.70, turn=(-4, -10, 0)),
        "lip_upper_inner": go(-0.32, 0.10, 0.70, turn=(-6, -4, 0)),
        "lip_upper": go(0, 0.10, 0.70, turn=(-6, 0, 0)),
        "lip_lower_outer": go(-0.78, -0.05, 0.65, turn=(4, -10, 0)),
        "lip_lower_inner": go(-0.32, -0.10, 0.65, turn=(6, -4, 0)),
        "lip_lower": go(0, -0.10, 0.65, turn=(6, 0, 0)),
        "fold": go(-0.20, -0.02, 0.15, turn=(0, -4, 0)),
        "cheek": go(-0.30, 0.02, 0.08),
        "chin": go(0, 0.10, 0.06),
    },
    # The lips flared like a trumpet, away from each other and off the teeth.
    "funnel": {
        "lip_corner": go(-0.55, 0.0, 0.30, turn=(0, -10, 0)),
        "lip_upper_outer": go(-0.22, 0.30, 0.35, turn=(-12, -6, 0)),
        "lip_upper_inner": go(-0.06, 0.38, 0.48, turn=(-16, -3, 0)),
        "lip_upper": go(0, 0.38, 0.50, turn=(-18, 0, 0)),
        "lip_lower_outer": go(-0.20, -0.30, 0.35, turn=(12, -6, 0)),
        "lip_lower_inner": go(-0.06, -0.40, 0.48, turn=(16, -3, 0)),
        "lip_lower": go(0, -0.42, 0.50, turn=(18, 0, 0)),
        "nostril": go(0.03, 0.04, 0.0, turn=(0, 3, 0)),
        "chin": go(0, -0.08, 0.06),
    },
    # The lips a little apart, so that the teeth show.
    "part": {
        "lip_upper_outer": go(0.02, 0.22, 0.0),
        "lip_upper_inner": go(0, 0.30, 0.04),
        "lip_upper": go(0, 0.30, 0.04, turn=(-5, 0, 0)),
        "lip_lower_outer": go(0.02, -0.24, 0.0),
        "lip_lower_inner": go(0, -0.34, 0.02),
        "lip_lower": go(0, -0.34, 0.02, turn=(5, 0, 0)),
        "fold": go(0.04, 0.08, 0.02),
        "nostril": go(0.03, 0.05, 0.0, turn=(0, 3, 0)),
    },
    # The lips pressed together and rolled in.
    "press": {
        "lip_corner": go(0.08, 0.0, -0.12, turn=(0, 4, 0)),
        "lip_upper_outer": go(0.03, -0.12, -0.22, turn=(14, 0, 0)),
        "lip_upper_inner": go(0, -0.16, -0.30, turn=(20, 0, 0)),
        "lip_upper": go(0, -0.16, -0.32, turn=(22, 0, 0)),
        "lip_lower_outer": go(0.03, 0.06, -0.22, turn=(-14, 0, 0)),
        "lip_lower_inner": go(0, 0.12, -0.30, turn=(-20, 0, 0)),
        "lip_lower": go(0, 0.12, -0.32, turn=(-22, 0, 0)),
        "cheek": go(0.08, 0, 0.06),
        "chin": go(0, 0.16, 0.05, turn=(-3, 0, 0)),
    },
    # The lower lip drawn in under the edge of the upper teeth.
    "tuck": {
        "lip_corner": go(0.05, -0.02, -0.10),
        "lip_upper_outer": go(0, 0.16, 0.05, turn=(-6, 0, 0)),
        "lip_upper_inner": go(0, 0.26, 0.12, turn=(-10, 0, 0)),
        "lip_upper": go(0, 0.26, 0.12, turn=(-10, 0, 0)),
        "lip_lower_outer": go(-0.05, 0.24, -0.50, turn=(-20, 0, 0)),
        "lip_lower_inner": go(0, 0.40, -0.85, turn=(-32, 0, 0)),
        "lip_lower": go(0, 0.42, -0.95, turn=(-36, 0, 0)),
        "fold": go(0.05, 0.10, 0.03),
        "nostril": go(0.03, 0.06, 0.0, turn=(0, 3, 0)),
        "chin": go(0, 0.28, -0.10, turn=(-5, 0, 0)),
    },
    # The tip of the tongue between the teeth.
    "tongue_out": {
        "tongue_root": go(0, 0.10, 0.35),
        "tongue_mid": go(0, 0.18, 0.60),
        "tongue_tip": go(0, 0.32, 1.05, turn=(4, 0, 0)),
    },
    # The tip against the ridge behind the upper teeth.
    "tongue_up": {
        "tongue_root": go(0, 0.15, 0.25),
        "tongue_mid": go(0, 0.45, 0.20, turn=(-14, 0, 0)),
        "tongue_tip": go(0, 0.70, 0.25, turn=(-24, 0, 0)),
    },
    # The tip curled back, touching nothing.
    "tongue_curl": {
        "tongue_root": go(0, 0.20, -0.30),
        "tongue_mid": go(0, 0.30, -0.35, turn=(-12, 0, 0)),
        "tongue_tip": go(0, 0.20, -0.40, turn=(-35, 0, 0)),
    },
    # The back of the tongue against the soft palate, the tip low.
    "tongue_back": {
        "tongue_root": go(0, 0.75, -0.30, turn=(6, 0, 0)),
        "tongue_mid": go(0, 0.35, -0.30, turn=(16, 0, 0)),
        "tongue_tip": go(0, -0.25, -0.20, turn=(6, 0, 0)),
    },
    "brow_raise": {
        "brow_inner": go(0, 0.50, -0.04, turn=(-4, 0, 2)),
        "brow_mid": go(0.04, 0.85, -0.12, turn=(-7, 0, 3)),
        "brow_outer": go(0.06, 0.62, -0.14, turn=(-5, 0, 4)),
    },
    # The lids roll over the eyeball and meet below its middle.
    "blink": {
        "lid_upper": go(turn=(36, 0, 0)),
        "lid_lower": go(turn=(-6, 0, 0)),
    },
}

# In the order of their frames: the neutral pose, the speech targets, the expressions.
POSES: dict[str, dict[str, float]] = {
    "Neutral": {},
    "Eat": {"open": 0.35, "stretch": 1.0, "part": 0.7},
    "Earth": {"open": 0.55, "funnel": 0.45, "pucker": 0.25, "tongue_curl": 0.5},
    "If": {"open": 0.75, "stretch": 0.35, "part": 0.45},
    "Ox": {"open": 1.65, "part": 0.25, "funnel": 0.15},
    "Oat": {"open": 0.85, "pucker": 0.6, "funnel": 0.55},
    "Wet": {"open": 0.3, "pucker": 1.0, "funnel": 0.15},
    "Size": {"open": -0.06, "stretch": 0.6, "part": 1.1, "tongue_up": 0.2},
    "Church": {"open": 0.0, "funnel": 1.1, "pucker": 0.45, "tongue_up": 0.3},
    "Fave": {"open": 0.08, "tuck": 1.0},
    "Though": {"open": 0.5, "part": 0.45, "tongue_out": 1.0},
    "Told": {"open": 0.7, "part": 0.45, "tongue_up": 1.0},
    "Bump": {"open": -0.08, "press": 1.0},
    "New": {"open": 0.4, "stretch": 0.25, "part": 0.55, "tongue_up": 0.8},
    "Roar": {"open": 0.35, "funnel": 0.5, "pucker": 0.6, "tongue_curl": 1.0},
    "Cage": {"open": 0.6, "stretch": 0.15, "part": 0.4, "tongue_back": 1.0},
    "Eyebrow_Raise_Left": {"brow_raise.left": 1.0},
    "Eyebrow_Raise_Right": {"brow_raise.right": 1.0},
    "Blink_Left": {"blink.left": 1.0},
    "Blink_Right": {"blink.right": 1.0},
}
