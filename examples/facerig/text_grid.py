"""Writes labels over time as Praat does: a TextGrid of the long form, blanks at line ends too."""

Interval = tuple[str, int, int]  # label, from, to; milliseconds


def _seconds(milliseconds: int) -> str:
    return f"{milliseconds / 1000:g}"


def _tier(name: str, number: int, intervals: list[Interval], length: int) -> list[str]:
    lines = [f"    item [{number}]:"]
    lines += ['        class = "IntervalTier" ', f'        name = "{name}" ']
    lines += ["        xmin = 0 ", f"        xmax = {_seconds(length)} "]
    lines += [f"        intervals: size = {len(intervals)} "]
    for i, (label, start, end) in enumerate(intervals, 1):
        lines += [f"        intervals [{i}]:"]
        lines += [f"            xmin = {_seconds(start)} ", f"            xmax = {_seconds(end)} "]
        lines += [f'            text = "{label}" ']
    return lines


def text(tiers: dict[str, list[Interval]], length: int) -> str:
    """The tiers in their order, each covered by its intervals. No label holds a quotation mark."""
    lines = ['File type = "ooTextFile"', 'Object class = "TextGrid"', ""]
    lines += ["xmin = 0 ", f"xmax = {_seconds(length)} ", "tiers? <exists> "]
    lines += [f"size = {len(tiers)} ", "item []: "]
    for number, (name, intervals) in enumerate(tiers.items(), 1):
        lines += _tier(name, number, intervals, length)
    return "\n".join(lines) + "\n"
