"""Draws the times that norel-payloads-benchmark prints: reads its tables, writes an SVG picture of time against the
number of profiles, both axes logarithmic, reading on the left and writing on the right."""

import math
import sys

SIZES = [14, 140, 1400, 14000]
WIDTH, HEIGHT = 920, 460
TOP, BOTTOM = 60, 410
PANELS = {"Reading": (70, 300), "Writing": (520, 750)}  # the left and the right edge
LABEL_HEIGHT = 17
CLASSES = {"bare JSON library": "base", "this library": "ours", "derived serializer": "derived"}
PEER_CLASSES = 5

STYLE = """
text { font: 13px sans-serif; fill: #24292f }
.title { font-weight: bold; font-size: 15px }
.back { fill: #ffffff }
.grid { stroke: #d8dee4 }
.line { fill: none; stroke-width: 2 }
.ours { stroke: #0550ae; stroke-width: 3.5 } .derived { stroke: #0550ae; stroke-dasharray: 6 4 }
.base { stroke: #6e7781; stroke-width: 3 } .peer0 { stroke: #bc4c00 } .peer1 { stroke: #1a7f37 }
.peer2 { stroke: #bf3989 } .peer3 { stroke: #9a6700 } .peer4 { stroke: #1b7c83 }
@media (prefers-color-scheme: dark) {
text { fill: #e6edf3 }
.back { fill: #0d1117 }
.grid { stroke: #30363d }
.ours, .derived { stroke: #58a6ff }
.base { stroke: #9198a1 } .peer0 { stroke: #ffa657 } .peer1 { stroke: #56d364 } .peer2 { stroke: #ff9bce }
.peer3 { stroke: #e3b341 } .peer4 { stroke: #76e3ea }
}"""


def read_times(lines):
    """The table that begins with "| ms": for each panel the names and milliseconds in its order, 0 where not measured."""
    panels = {title: {} for title in PANELS}
    is_inside = False
    for line in lines:
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        if cells[0].startswith("ms,"):
            is_inside = True
        elif len(cells) <= len(SIZES):
            is_inside = False
        elif is_inside and " / " in cells[1]:
            pairs = [cell.split(" / ") for cell in cells[1 : len(SIZES) + 1]]
            for rows, times in zip(panels.values(), zip(*pairs)):
                rows[cells[0]] = [0 if time == "-" else float(time) for time in times]
    return panels


def spread(heights):
    """The heights moved apart so that labels do not overlap, in their order."""
    order = sorted(range(len(heights)), key=lambda i: heights[i])
    moved = list(heights)
    for _ in range(200):
        for above, below in zip(order, order[1:]):
            overlap = LABEL_HEIGHT - (moved[below] - moved[above])
            if overlap > 0:
                moved[above] -= overlap / 2
                moved[below] += overlap / 2
    return moved


def label_of(milliseconds):
    return f"{milliseconds / 1000:g} s" if milliseconds >= 1000 else f"{milliseconds:g} ms"


def draw(panels):
    classes = dict(CLASSES)
    for name in panels["Reading"]:
        classes.setdefault(name, f"peer{(len(classes) - len(CLASSES)) % PEER_CLASSES}")
    times = [time for rows in panels.values() for row in rows.values() for time in row if time > 0]
    if not times:
        sys.exit("No times to draw.")
    low, high = math.floor(math.log10(min(times))), math.ceil(math.log10(max(times)))

    def height_of(milliseconds):
        return BOTTOM - (math.log10(milliseconds) - low) / (high - low) * (BOTTOM - TOP)

    yield f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" height="{HEIGHT}">'
    yield "<title>Time of reading and of writing a list against its number of profiles</title>"
    yield f"<style>{STYLE}\n</style>"
    yield f'<rect class="back" width="{WIDTH}" height="{HEIGHT}" rx="6"/>'
    for title, (left, right) in PANELS.items():
        yield f'<text class="title" x="{left}" y="{TOP - 25}">{title}</text>'
        for power in range(low, high + 1):
            y = height_of(10**power)
            yield f'<path class="grid" d="M{left} {y:.1f}H{right}"/>'
            yield f'<text x="{left - 8}" y="{y + 4:.1f}" text-anchor="end">{label_of(10**power)}</text>'
        x_of = [left + (right - left) * i / (len(SIZES) - 1) for i in range(len(SIZES))]
        for x, size in zip(x_of, SIZES):
            yield f'<path class="grid" d="M{x:.1f} {TOP}V{BOTTOM}"/>'
            yield f'<text x="{x:.1f}" y="{BOTTOM + 20}" text-anchor="middle">{size:,}</text>'
        yield f'<text x="{(left + right) / 2}" y="{BOTTOM + 40}" text-anchor="middle">profiles</text>'

        lines = {name: row for name, row in panels[title].items() if any(row)}
        ends = []
        for name, row in lines.items():
            points = [(x, height_of(time)) for x, time in zip(x_of, row) if time > 0]
            path = "L".join(f"{x:.1f} {y:.1f}" for x, y in points)
            yield f'<path class="line {classes[name]}" d="M{path}"/>'
            ends.append(points[-1])
        for name, (x, y), label in zip(lines, ends, spread([y for _, y in ends])):
            yield f'<path class="line {classes[name]}" d="M{x + 5:.1f} {y:.1f}L{right + 28} {label:.1f}"/>'
            yield f'<text x="{right + 33}" y="{label + 4:.1f}">{name}</text>'
    yield "</svg>"


print("\n".join(draw(read_times(sys.stdin))))
