"""The joints of the face, as an artist would lay them out on a head model.

Places are in face space: centimetres from the head joint, x to the character's left, y up,
z forward. A joint that is paired is given for the left side; the right one is made by mirroring.
"""

from dataclasses import dataclass

Vector = tuple[float, float, float]

GROUP = "face_grp"
NECK = "neck"
HEAD = "head"
HEAD_PLACE = (0.0, 160.0, 1.0)  # of the head joint, in the world
NECK_PLACE = (0.0, -12.0, -2.5)
EYE = (3.2, 3.2, 8.0)
CENTRE_OF_MOUTH = (0.0, -4.1, 6.2)
CENTRE_OF_SKULL = (0.0, 1.0, 2.0)
FORWARD = (0.0, 0.0, 1.0)


@dataclass(frozen=True)
class Joint:
    name: str
    parent: str
    place: Vector
    aim: Vector  # the joint's x axis points here
    up: Vector = (0.0, 1.0, 0.0)  # the joint's y axis leans here
    jaw: float = 0.0  # the share of the jaw's motion that the joint takes
    carried: bool = False  # moves with its parent, whatever that does
    swings: Vector | None = None  # turns about this point in place of its own
    radius: float = 0.3
    listed: bool = True  # in bones.txt


def _away(place: Vector, centre: Vector) -> Vector:
    return tuple(2 * p - c for p, c in zip(place, centre))


def _skin(name, parent, place, centre, **options) -> Joint:
    """A joint of the skin: its x axis points out of the face."""
    return Joint(name, parent, place, _away(place, centre), **options)


def _upper_lip(name, place, jaw=0.0) -> Joint:
    return _skin(name, HEAD, place, CENTRE_OF_MOUTH, jaw=jaw)


def _lower_lip(name, place, jaw=1.0) -> Joint:
    return _skin(name, "jaw", place, CENTRE_OF_MOUTH, jaw=jaw)


def _lid(name, place) -> Joint:
    return _skin(name, HEAD, place, EYE, swings=EYE, radius=0.2)


# Parents come before their children.
MIDDLE = [
    Joint(NECK, GROUP, NECK_PLACE, (0.0, 0.0, 0.0), up=FORWARD, radius=1.2, listed=False),
    Joint(HEAD, NECK, (0.0, 0.0, 0.0), (0.0, 1.0, 0.0), up=FORWARD, radius=1.2, listed=False),
    Joint("jaw", HEAD, (0.0, -0.4, 1.4), (0.0, -7.6, 10.0), radius=0.8),
    _skin("chin", "jaw", (0.0, -7.6, 10.0), (0.0, -6.0, 5.0), jaw=1.0, radius=0.4),
    _skin("teeth_lower", "jaw", (0.0, -4.3, 9.2), (0.0, -4.3, 5.0), jaw=1.0),
    Joint("tongue_root", "jaw", (0.0, -4.6, 3.8), (0.0, -4.1, 6.2), jaw=1.0),
    Joint("tongue_mid", "tongue_root", (0.0, -4.1, 6.2), (0.0, -4.4, 8.3), carried=True),
    Joint("tongue_tip", "tongue_mid", (0.0, -4.4, 8.3), (0.0, -4.6, 9.3), carried=True),
    _lower_lip("lip_lower", (0.0, -4.55, 10.45)),
    _skin("teeth_upper", HEAD, (0.0, -4.1, 9.6), (0.0, -4.1, 5.0)),
    _upper_lip("lip_upper", (0.0, -3.75, 10.75)),
    _skin("nose", HEAD, (0.0, -0.3, 11.4), (0.0, 1.6, 8.0), radius=0.4),
]

LEFT = [
    _lower_lip("lip_lower_inner", (0.8, -4.55, 10.35), jaw=0.97),
    _lower_lip("lip_lower_outer", (1.65, -4.42, 9.95), jaw=0.8),
    _upper_lip("lip_upper_inner", (0.8, -3.65, 10.65)),
    _upper_lip("lip_upper_outer", (1.7, -3.85, 10.1), jaw=0.1),
    _upper_lip("lip_corner", (2.5, -4.15, 9.3), jaw=0.45),
    _skin("nostril", "nose", (1.3, -1.2, 10.2), (0.0, -0.8, 8.5)),
    _skin("fold", HEAD, (2.9, -1.9, 9.7), (0.0, -2.0, 4.0), jaw=0.12),
    _skin("cheek", HEAD, (5.1, -3.4, 6.9), CENTRE_OF_SKULL, jaw=0.3, radius=0.4),
    _skin("cheek_upper", HEAD, (4.5, 0.6, 8.7), CENTRE_OF_SKULL, radius=0.4),
    # Looks a little down: a level eye would be half a turn round an axis between two others, where a
    # hair's breadth decides which of two quaternions a rotation gets.
    Joint("eye", HEAD, EYE, (3.3, 3.08, 9.2), radius=0.6),
    _lid("lid_upper", (3.2, 3.72, 9.2)),
    _lid("lid_lower", (3.2, 2.77, 9.22)),
    _skin("brow_inner", HEAD, (1.4, 5.0, 10.1), CENTRE_OF_SKULL),
    _skin("brow_mid", HEAD, (3.1, 5.7, 9.7), CENTRE_OF_SKULL),
    _skin("brow_outer", HEAD, (4.9, 5.2, 8.5), CENTRE_OF_SKULL),
]


@dataclass(frozen=True)
class Sided:
    """A joint of the rig with its side: "left", "right", or "" for the middle of the face."""

    joint: Joint
    side: str

    @property
    def name(self) -> str:
        return f"{self.joint.name}_{self.side}" if self.side else self.joint.name


def all_joints() -> list[Sided]:
    rig = [Sided(joint, "") for joint in MIDDLE]
    for joint in LEFT:
        rig += [Sided(joint, "left"), Sided(joint, "right")]
    return rig
