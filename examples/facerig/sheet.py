"""Draws every pose from the front, as a contact sheet in SVG."""

import math

from .joints import EYE
from .solve import Pose, Rig

COLUMNS = 5
SCALE = 10.0  # of one centimetre on the face, in the picture
CELL_WIDTH, CELL_HEIGHT = 176, 246
ORIGIN = (CELL_WIDTH / 2, 110)  # of face space within a cell
IRIS = 0.72
EYE_CORNERS = ((1.95, 3.05), (4.45, 3.25))

Point = tuple[float, float]

_STYLE = """\
text { font: 12px sans-serif; fill: #333; text-anchor: middle }
.skin { fill: #f3d9c6; stroke: #a8826c; stroke-width: 1.2 }
.line { fill: none; stroke: #a8826c; stroke-width: 1.2; stroke-linecap: round }
.fold { fill: none; stroke: #d0a88f; stroke-width: 1; stroke-linecap: round }
.brow { fill: none; stroke: #6b4b35; stroke-width: 4.5; stroke-linecap: round }
.lash { fill: none; stroke: #4d3a30; stroke-width: 1.6; stroke-linecap: round }
.white { fill: #fff } .iris { fill: #5d7f95 } .pupil { fill: #222 }
.mouth { fill: #4a1c1c } .teeth { fill: #fffdf4 } .tongue { fill: #d0757a } .mid { fill: #8a4249 }
.ring { fill: none; stroke: #c4736a; stroke-linejoin: round }
.lip { fill: #c4736a }
.edge { fill: none; stroke: #944a44; stroke-width: 0.8; stroke-linecap: round }"""


def _at(point: Point) -> str:
    return f"{ORIGIN[0] + SCALE * point[0]:.1f} {ORIGIN[1] - SCALE * point[1]:.1f}"


def _piece(before: Point, a: Point, b: Point, after: Point) -> str:
    leave = (a[0] + (b[0] - before[0]) / 6, a[1] + (b[1] - before[1]) / 6)
    arrive = (b[0] - (after[0] - a[0]) / 6, b[1] - (after[1] - a[1]) / 6)
    return f"C{_at(leave)} {_at(arrive)} {_at(b)}"


def _curve(points: list[Point], start: str = "M") -> str:
    """A smooth path through the points."""
    padded = [points[0], *points, points[-1]]
    pieces = [_piece(*padded[i : i + 4]) for i in range(len(points) - 1)]
    return f"{start}{_at(points[0])}" + "".join(pieces)


def _ring(points: list[Point]) -> str:
    padded = [points[-1], *points, *points[:2]]
    pieces = [_piece(*padded[i : i + 4]) for i in range(len(points))]
    return f"M{_at(points[0])}" + "".join(pieces) + "Z"


def _closed(there: list[Point], back: list[Point]) -> str:
    return _curve(there) + _curve(back[::-1], "L") + "Z"


def _lip_joints(stem: str) -> list[str]:
    """From corner to corner, the character's right first."""
    parts = ["lip_corner", f"{stem}_outer", f"{stem}_inner"]
    return [f"{p}_right" for p in parts] + [stem] + [f"{p}_left" for p in reversed(parts)]


class _Face:
    """One pose; every part is a list of SVG elements."""

    def __init__(self, rig: Rig, pose: Pose, number: int):
        self.frames = pose.frames
        self.neutral = rig.neutral
        self.number = number

    def flat(self, name: str) -> Point:
        return self.frames[name].place[:2]

    def moved(self, point: Point, joint: str, share: float = 1.0) -> Point:
        """A point of the skin that goes with a joint."""
        before, after = self.neutral[joint].place, self.frames[joint].place
        return tuple(point[i] + share * (after[i] - before[i]) for i in range(2))

    def rolled_out(self, name: str) -> float:
        """How far a joint's outward axis has tipped up from where it was, as a sine."""
        sign = -1 if name.endswith("_right") else 1  # the right side's axes point inwards
        return sign * (self.frames[name].rotation[0][1] - self.neutral[name].rotation[0][1])

    def head(self) -> list[str]:
        left = [(3.2, 10.4), (6.0, 8.6), (7.1, 4.6), (6.9, 0.5)]
        left.append(self.moved((6.2, -4.2), "cheek_left"))
        left += [self.moved((4.1, -7.7), "chin", 0.85), self.moved((1.7, -9.1), "chin")]
        outline = left + [(-x, y) for x, y in reversed(left)]
        nose = [(-1.35, -0.7), self.flat("nostril_right"), (-0.6, -1.35), (0, -1.55), (0.6, -1.35)]
        nose += [self.flat("nostril_left"), (1.35, -0.7)]
        parts = [f'<path class="skin" d="{_ring(outline)}"/>']
        parts.append(f'<path class="line" d="{_curve(nose)}"/>')
        for side_name, sign in (("left", 1), ("right", -1)):
            crease = [(sign * 1.9, -0.9), self.flat(f"fold_{side_name}")]
            corner = self.flat(f"lip_corner_{side_name}")
            crease.append((corner[0] + sign * 0.9, corner[1] + 0.5))
            parts.append(f'<path class="fold" d="{_curve(crease)}"/>')
        return parts

    def eyes(self) -> list[str]:
        parts = []
        for side, sign in (("left", 1), ("right", -1)):
            inner, outer = ((sign * x, y) for x, y in EYE_CORNERS)
            upper = [inner, self.flat(f"lid_upper_{side}"), outer]
            lower = [inner, self.flat(f"lid_lower_{side}"), outer]
            upper[1:1] = [((inner[0] + upper[1][0]) / 2, (inner[1] + 2.6 * upper[1][1]) / 3.6)]
            upper[3:3] = [((outer[0] + upper[2][0]) / 2, (outer[1] + 2.6 * upper[2][1]) / 3.6)]
            clip = f"eye{self.number}{side}"
            centre = _at((sign * EYE[0], EYE[1])).split()
            shape = _closed(upper, lower)
            parts.append(f'<clipPath id="{clip}"><path d="{shape}"/></clipPath>')
            parts.append(f'<g clip-path="url(#{clip})"><path class="white" d="{shape}"/>')
            for kind, radius in (("iris", IRIS), ("pupil", IRIS * 0.45)):
                size = f'cx="{centre[0]}" cy="{centre[1]}" r="{SCALE * radius:.1f}"'
                parts.append(f'<circle class="{kind}" {size}/>')
            parts.append("</g>")
            parts.append(f'<path class="line" d="{_curve(lower)}"/>')
            parts.append(f'<path class="lash" d="{_curve(upper)}"/>')
            brow = [self.flat(f"brow_{part}_{side}") for part in ("inner", "mid", "outer")]
            parts.append(f'<path class="brow" d="{_curve(brow)}"/>')
        return parts

    def corner(self) -> float:
        """Half the lips' thickness at their corners: the more, the further these are drawn in."""
        neutral = self.neutral["lip_corner_left"].place[0]
        return 0.06 + 0.2 * max(0.0, neutral - self.flat("lip_corner_left")[0])

    def mouth(self) -> list[str]:
        upper, lower = (
            [self.flat(name) for name in _lip_joints(stem)] for stem in ("lip_upper", "lip_lower")
        )
        inside = _closed(upper, lower)
        clip = f"mouth{self.number}"
        within = f'clip-path="url(#{clip})"'
        teeth_upper, teeth_lower = self.flat("teeth_upper")[1], self.flat("teeth_lower")[1]
        # Nearest last, so that the tongue and the lower lip pass before or behind the teeth.
        painted = [
            (self.frames["teeth_lower"].place[2], self._row(teeth_lower, -1.3, 2.0, within)),
            (self.frames["teeth_upper"].place[2], self._row(teeth_upper, 1.3, 2.3, within)),
            (self.frames["tongue_mid"].place[2], self._tongue("mid", 1.4, 0.5, within)),
            (self.frames["tongue_tip"].place[2], self._tongue("tip", 1.2, 0.42, within)),
            (self.frames["lip_lower"].place[2], self._lip("lip_lower", -1, [0.30, 0.43, 0.45])),
            (self.frames["lip_upper"].place[2], self._lip("lip_upper", 1, [0.27, 0.38, 0.35])),
        ]
        parts = [f'<clipPath id="{clip}"><path d="{inside}"/></clipPath>']
        width = f"{2 * SCALE * self.corner():.1f}"
        parts.append(f'<path class="ring" d="{inside}" stroke-width="{width}"/>')
        parts.append(f'<path class="mouth" d="{inside}"/>')
        return parts + [drawing for _, drawing in sorted(painted)]

    @staticmethod
    def _row(edge: float, height: float, half_width: float, attributes: str) -> str:
        far = edge + height
        points = [(-half_width, edge + 0.24), (-half_width / 2, edge + 0.06), (0.0, edge)]
        points += [(-x, y) for x, y in points[-2::-1]]
        path = f"{_curve(points)}L{_at((half_width, far))}L{_at((-half_width, far))}Z"
        return f'<path class="teeth" d="{path}" {attributes}/>'

    def _tongue(self, part: str, wide: float, high: float, attributes: str) -> str:
        x, y = self.flat(f"tongue_{part}")
        cx, cy = _at((x, y - 0.15)).split()
        size = f'cx="{cx}" cy="{cy}" rx="{SCALE * wide:g}" ry="{SCALE * high:g}"'
        return f'<ellipse class="tongue {part}" {size} {attributes}/>'

    def _lip(self, stem: str, up: int, half: list[float]) -> str:
        """A lip of the given half thicknesses, which rolling in or out makes less or more."""
        names = _lip_joints(stem)
        middle = [self.flat(name) for name in names]
        thickness = [self.corner()] + half + half[-2::-1] + [self.corner()]
        outer, inner = [], []
        for i, name in enumerate(names):
            x, y = middle[i]
            before, after = middle[max(i - 1, 0)], middle[min(i + 1, len(middle) - 1)]
            along = (after[0] - before[0], after[1] - before[1])
            h = up * thickness[i] * (1 + up * self.rolled_out(name)) / math.hypot(*along)
            at_corner = i in (0, len(names) - 1)
            outer.append((x - h * along[1], y + h * along[0]))
            inner.append((x, y) if at_corner else (x + h * along[1], y - h * along[0]))
        return (
            f'<path class="lip" d="{_closed(outer, inner)}"/>'
            f'<path class="edge" d="{_curve(inner)}"/>'
        )

    def drawn(self) -> list[str]:
        return self.head() + self.eyes() + self.mouth()


def svg(rig: Rig, poses: dict[str, Pose]) -> str:
    rows = -(-len(poses) // COLUMNS)
    width, height = COLUMNS * CELL_WIDTH, rows * CELL_HEIGHT
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
        f'width="{width}" height="{height}">',
        f"<style>\n{_STYLE}\n</style>",
        f'<rect width="{width}" height="{height}" fill="#fff"/>',
    ]
    for i, (name, pose) in enumerate(poses.items()):
        x, y = i % COLUMNS * CELL_WIDTH, i // COLUMNS * CELL_HEIGHT
        parts.append(f'<g transform="translate({x} {y})">')
        parts += _Face(rig, pose, i).drawn()
        parts.append(f'<text x="{CELL_WIDTH / 2:g}" y="{CELL_HEIGHT - 6}">{10 * i}: {name}</text>')
        parts.append("</g>")
    return "\n".join(parts + ["</svg>"]) + "\n"
