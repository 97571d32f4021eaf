"""From places and actions in face space to the channels of the joints.

Row vectors throughout, as the host has them: a point goes p * M, a joint's rotation is
R * JO with R = Rx * Ry * Rz, and its world rotation is R * JO * (the parent's world rotation).
A rotation is three rows, which are the joint's axes in the space that it maps to.
"""

import math
from dataclasses import dataclass

from .joints import HEAD_PLACE, Joint, Sided, Vector
from .poses import ACTIONS, Go

Matrix = tuple[Vector, Vector, Vector]
CHANNELS = ("translateX", "translateY", "translateZ", "rotateX", "rotateY", "rotateZ")
IDENTITY: Matrix = ((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0))
DIGITS = 6  # of a value in the scene, after the point


def add(a: Vector, b: Vector) -> Vector:
    return (a[0] + b[0], a[1] + b[1], a[2] + b[2])


def sub(a: Vector, b: Vector) -> Vector:
    return (a[0] - b[0], a[1] - b[1], a[2] - b[2])


def scale(a: Vector, factor: float) -> Vector:
    return (a[0] * factor, a[1] * factor, a[2] * factor)


def cross(a: Vector, b: Vector) -> Vector:
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def unit(a: Vector) -> Vector:
    return scale(a, 1.0 / math.hypot(*a))


def apply(p: Vector, m: Matrix) -> Vector:
    return tuple(sum(p[k] * m[k][column] for k in range(3)) for column in range(3))


def multiply(a: Matrix, b: Matrix) -> Matrix:
    return tuple(apply(row, b) for row in a)


def transpose(m: Matrix) -> Matrix:
    return tuple(zip(*m))


def turned(degrees: Vector) -> Matrix:
    """The rotation about the axis that the vector points along, by its length."""
    angle = math.radians(math.hypot(*degrees))
    if angle == 0.0:
        return IDENTITY
    axis = unit(degrees)
    c, s = math.cos(angle), math.sin(angle)
    # Each row is where the axis of that row goes (Rodrigues' formula).
    return tuple(
        add(add(scale(e, c), scale(cross(axis, e), s)), scale(axis, (1.0 - c) * axis[i]))
        for i, e in enumerate(IDENTITY)
    )


def from_euler(degrees: Vector) -> Matrix:
    x, y, z = (turned(scale(e, angle)) for e, angle in zip(IDENTITY, degrees))
    return multiply(multiply(x, y), z)


def to_euler(m: Matrix) -> Vector:
    """Angles in degrees, rotate order xyz; the middle one within a quarter turn."""
    # Without the dust of rounding, whose sign would choose between 180 and -180 degrees.
    m = tuple(tuple(0.0 if abs(value) < 1e-12 else value for value in row) for row in m)
    angles = (
        math.atan2(m[1][2], m[2][2]),
        math.atan2(-m[0][2], math.hypot(m[0][0], m[0][1])),
        math.atan2(m[0][1], m[0][0]),
    )
    return tuple(math.degrees(angle) for angle in angles)


def rounded(values) -> tuple[float, ...]:
    return tuple(round(value, DIGITS) + 0.0 for value in values)  # + 0.0 turns -0.0 into 0.0


def mirrored(place: Vector) -> Vector:
    return (-place[0], place[1], place[2])


def mirrored_turn(turn: Vector) -> Vector:
    return (turn[0], -turn[1], -turn[2])


def axes(joint: Joint) -> Matrix:
    x = unit(sub(joint.aim, joint.place))
    z = unit(cross(x, joint.up))
    return (x, cross(z, x), z)


@dataclass(frozen=True)
class Frame:
    """Where a joint is and how its axes lie, in face space."""

    place: Vector
    rotation: Matrix


@dataclass(frozen=True)
class Pose:
    channels: dict[str, tuple[float, ...]]  # by joint, in the order of CHANNELS
    frames: dict[str, Frame]


WORLD = Frame(scale(HEAD_PLACE, -1.0), IDENTITY)


class Rig:
    def __init__(self, joints: list[Sided]):
        self.joints = self._depth_first(joints)
        self.parents = self._parents()
        self.translate: dict[str, Vector] = {}
        self.orient: dict[str, Vector] = {}
        self.neutral: dict[str, Frame] = {}
        for bone in self.joints:
            self._lay(bone)

    def _parents(self) -> dict[str, str]:
        """A paired joint hangs on its own side's parent where there is one."""
        names = {bone.name for bone in self.joints}
        parents = {}
        for bone in self.joints:
            own_side = f"{bone.joint.parent}_{bone.side}"
            parents[bone.name] = own_side if own_side in names else bone.joint.parent
        return parents

    @staticmethod
    def _depth_first(joints: list[Sided]) -> list[Sided]:
        def below(name: str) -> list[Sided]:
            ordered = []
            for bone in joints:
                if bone.joint.parent == name:
                    ordered += [bone] + below(bone.name)
            return ordered

        return below(joints[0].joint.parent)

    def _lay(self, bone: Sided) -> None:
        place, rotation = bone.joint.place, axes(bone.joint)
        if bone.side == "right":
            # All three axes mirrored and turned round: equal rotations then move both sides alike.
            place = mirrored(place)
            rotation = tuple((row[0], -row[1], -row[2]) for row in rotation)
        parent = self.neutral.get(self.parents[bone.name], WORLD)
        into_parent = transpose(parent.rotation)
        translate = rounded(apply(sub(place, parent.place), into_parent))
        orient = rounded(to_euler(multiply(rotation, into_parent)))
        self.translate[bone.name] = translate
        self.orient[bone.name] = orient
        # What the scene will say, so that an unmoved joint gets exactly its neutral channels.
        self.neutral[bone.name] = Frame(
            add(apply(translate, parent.rotation), parent.place),
            multiply(from_euler(orient), parent.rotation),
        )

    def pose(self, actions: dict[str, float]) -> Pose:
        jaw = self._going("jaw", "", actions)
        frames: dict[str, Frame] = {}
        channels: dict[str, tuple[float, ...]] = {}
        for bone in self.joints:
            frames[bone.name] = self._placed(bone, actions, jaw, frames)
            channels[bone.name] = self._channels(bone, frames)
        return Pose(channels, frames)

    @staticmethod
    def _going(joint: str, side: str, actions: dict[str, float]) -> Go:
        """The sum of what the actions ask of one joint."""
        move = turn = (0.0, 0.0, 0.0)
        for action, weight in actions.items():
            name, _, only = action.partition(".")
            part = ACTIONS[name].get(joint)
            if part and only in ("", side):
                move = add(move, scale(part.move, weight))
                turn = add(turn, scale(part.turn, weight))
        return Go(mirrored(move), mirrored_turn(turn)) if side == "right" else Go(move, turn)

    def _placed(self, bone: Sided, actions, jaw: Go, frames: dict[str, Frame]) -> Frame:
        going = self._going(bone.joint.name, bone.side, actions)
        place, rotation = self._carried(bone, jaw, frames)
        turn = turned(going.turn)
        if bone.joint.swings:
            pivot = mirrored(bone.joint.swings) if bone.side == "right" else bone.joint.swings
            place = add(apply(sub(place, pivot), turn), pivot)
        return Frame(add(place, going.move), multiply(rotation, turn))

    def _carried(self, bone: Sided, jaw: Go, frames: dict[str, Frame]) -> tuple[Vector, Matrix]:
        """Where others take the joint before it moves by itself."""
        neutral = self.neutral[bone.name]
        if bone.joint.carried:
            parent = self.parents[bone.name]
            before, after = self.neutral[parent], frames[parent]
            motion = multiply(transpose(before.rotation), after.rotation)
            place = add(apply(sub(neutral.place, before.place), motion), after.place)
            return place, multiply(neutral.rotation, motion)
        if bone.joint.jaw == 0.0:
            return neutral.place, neutral.rotation
        turn = turned(scale(jaw.turn, bone.joint.jaw))
        hinge = self.neutral["jaw"].place
        place = add(apply(sub(neutral.place, hinge), turn), hinge)
        return add(place, scale(jaw.move, bone.joint.jaw)), multiply(neutral.rotation, turn)

    def _channels(self, bone: Sided, frames: dict[str, Frame]) -> tuple[float, ...]:
        own = frames[bone.name]
        parent = frames.get(self.parents[bone.name], WORLD)
        into_parent = transpose(parent.rotation)
        translate = apply(sub(own.place, parent.place), into_parent)
        local = multiply(own.rotation, into_parent)
        orient = from_euler(self.orient[bone.name])
        return rounded(translate + to_euler(multiply(local, transpose(orient))))
