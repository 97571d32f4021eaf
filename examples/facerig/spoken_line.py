"""A line for the face to speak, in two files. A TextGrid has its words and phones as an aligner
finds them in a recording; an LTF file has it shaped by hand, as keys on the face's speech targets
and expressions.

Each phone pulls the mouth to one shape. The shapes overlap as they do in speech: one is on its way
before its phone is heard and leaves while the next one comes, so the mouth is never at rest between
two of them.
"""

from dataclasses import dataclass

from . import text_grid
from .poses import POSES

LENGTH = 3000  # milliseconds, as all times here
SENTENCE = "Hello there, nice to meet you."

# Each word and its phones, from and to, as aligners write them: ARPAbet, a digit is the vowel's
# stress. A silence or a pause is no word. Each phone begins where the one before ends.
WORDS = (
    ("", (("", 0, 300),)),
    ("hello", (("HH", 300, 370), ("AH0", 370, 450), ("L", 450, 540), ("OW1", 540, 740))),
    ("there", (("DH", 740, 810), ("EH1", 810, 940), ("R", 940, 1100))),
    ("", (("sp", 1100, 1450),)),
    ("nice", (("N", 1450, 1540), ("AY1", 1540, 1770), ("S", 1770, 1900))),
    ("to", (("T", 1900, 1970), ("AH0", 1970, 2060))),
    ("meet", (("M", 2060, 2150), ("IY1", 2150, 2330), ("T", 2330, 2400))),
    ("you", (("Y", 2400, 2480), ("UW1", 2480, 2700))),
    ("", (("", 2700, LENGTH),)),
)
PHONES = tuple(phone for _, phones in WORDS for phone in phones)

# The speech target of each phone and its weight, as pose files of a new rig have them.
SHAPES = {
    "": ("", 0.0),
    "HH": ("If", 0.85),
    "AH0": ("If", 0.85),
    "L": ("Told", 0.85),
    "OW1": ("Oat", 0.85),
    "DH": ("Though", 0.85),
    "EH1": ("If", 0.85),
    "R": ("Roar", 0.85),
    "sp": ("If", 0.20),
    "N": ("New", 0.85),
    "AY1": ("If", 0.85),
    "S": ("Size", 0.85),
    "T": ("Told", 0.85),
    "M": ("Bump", 0.85),
    "IY1": ("Eat", 0.85),
    "Y": ("Wet", 0.85),
    "UW1": ("Oat", 0.85),
}

LEAD = 80  # how long before its phone a shape begins to come
LAG = 60  # how long after its phone it has gone
SETTLE = 40  # how far inside the phone it stands in full; its middle when the phone is shorter

# Coming from, there from, there to, gone: one blink in the pause, the left brow over "nice".
BLINK = ((1160, 1240, 1280, 1420, 1.0),)
RAISED_LEFT = ((1440, 1600, 1760, 1960, 0.8),)
RAISED_RIGHT = ((1440, 1600, 1760, 1960, 0.25),)

KEYS_OF_FIRST_LINE = 25
KEYS_OF_LATER_LINES = 26

Key = tuple[int, float]


@dataclass
class Sound:
    """One phone, or several in a row that have the same shape."""

    start: int
    end: int
    weight: float


def _sounds(target: str) -> list[Sound]:
    sounds: list[Sound] = []
    for phone, start, end in PHONES:
        shape, weight = SHAPES[phone]
        if shape != target:
            continue
        if sounds and (sounds[-1].end, sounds[-1].weight) == (start, weight):
            sounds[-1].end = end
        else:
            sounds.append(Sound(start, end, weight))
    return sounds


def _speech_keys(target: str) -> list[Key]:
    keys: list[Key] = []
    for sound in _sounds(target):
        coming = sound.start - LEAD
        if keys and coming <= keys[-1][0]:
            # It comes back before it has gone: it only dips between the two.
            gone = keys.pop()[0]
            keys.append(((gone + coming) // 2, min(keys[-1][1], sound.weight) / 2))
        else:
            keys.append((coming, 0.0))
        middle = (sound.start + sound.end) // 2
        there = min(sound.start + SETTLE, middle)
        leaving = max(sound.end - SETTLE, middle)
        keys.append((there, sound.weight))
        if leaving > there:
            keys.append((leaving, sound.weight))
        keys.append((sound.end + LAG, 0.0))
    return _whole_length(keys)


def _expression_keys(moves: tuple[tuple[int, int, int, int, float], ...]) -> list[Key]:
    keys: list[Key] = []
    for coming, there, leaving, gone, amount in moves:
        keys += [(coming, 0.0), (there, amount), (leaving, amount), (gone, 0.0)]
    return _whole_length(keys)


def _whole_length(keys: list[Key]) -> list[Key]:
    """The animation is as long as its tracks: their last keys take the silence in."""
    return [(0, 0.0), *keys, (LENGTH, 0.0)] if keys else []


def _block(name: str, keys: list[Key]) -> list[str]:
    lines = ["{", name, str(len(keys))]
    begin, room = 0, KEYS_OF_FIRST_LINE
    while begin < len(keys):
        lines.append(" ".join(f"{time} {value:g}" for time, value in keys[begin : begin + room]))
        begin, room = begin + room, KEYS_OF_LATER_LINES
    return [*lines, "}"]


def grid() -> str:
    """The line's words and phones as a TextGrid."""
    words = [(word, phones[0][1], phones[-1][2]) for word, phones in WORDS]
    return text_grid.text({"words": words, "phones": list(PHONES)}, LENGTH)


def animation() -> str:
    """The line shaped by hand as an LTF file."""
    names = list(POSES)
    targets = names[1:-4]
    expressions = dict(zip(names[-4:], (RAISED_LEFT, RAISED_RIGHT, BLINK, BLINK), strict=True))
    lines = ["LTF", "1.0", ""]
    lines += ["// Header lines", "1", f"{SENTENCE} Times are in milliseconds.", ""]
    lines += ["// Speech target tracks", str(len(targets))]
    for target in targets:
        lines += _block(target, _speech_keys(target))
    lines += ["", "// Expression tracks", str(len(expressions))]
    for name, moves in expressions.items():
        lines += _block(name, _expression_keys(moves))
    return "\n".join(lines) + "\n"
