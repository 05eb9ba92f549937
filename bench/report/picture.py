"""The picture of cost against size, as SVG: on both axes a tenfold is as long everywhere, so that
what grows with its size is a line of one slope."""

from math import ceil, floor, log10
from typing import NamedTuple
from xml.sax.saxutils import escape

from report.figures import floor_of, milliseconds

PANELS = (
    ("Check of a text", "component/check/missing", ("floor/rules", "floor/look-ups/missing")),
    ("Generating its book file", "component/generate", ("floor/book-xml",)),
    ("Check and export of a page", "component/page", ("floor/page",)),
    ("Check of a book file", "component/book-file", ("floor/book-file",)),
    ("Listing a catalogue", "component/library/BookInfo", ("floor/library/BookInfo",)),
    ("Deleting from a catalogue", "component/library/DeleteQuorNode",
     ("floor/library/load-and-save",)),
    ("Keywords of one book", "component/keywords/AddKeywords", ("floor/keywords",)),
    ("Link identifiers of one book", "component/links/GenerateBookLinkID", ("floor/links",)),
    ("quorbind add, a text", "command/add/text", ("process/add/text",)),
)
PER_LINE = 3

PANEL_WIDTH, PANEL_HEIGHT = 220, 150
LEFT, TOP, GAP_X, GAP_Y = 62, 74, 66, 66

STYLE = """
  .ground { fill: #ffffff; }
  text { font: 12px system-ui, sans-serif; fill: #24292f; }
  .head { font-size: 16px; font-weight: 600; }
  .name { font-weight: 600; }
  .tick { font-size: 10px; fill: #57606a; }
  .grid { stroke: #d0d7de; stroke-width: 1; }
  .ours { stroke: #0a58ca; fill: #0a58ca; }
  .floor { stroke: #a15c00; fill: #a15c00; }
  polyline { fill: none !important; stroke-width: 2; }
  polyline.floor { stroke-dasharray: 5 4; }
  @media (prefers-color-scheme: dark) {
    .ground { fill: #0d1117; }
    text { fill: #e6edf3; }
    .tick { fill: #9da7b1; }
    .grid { stroke: #30363d; }
    .ours { stroke: #6cb0ff; fill: #6cb0ff; }
    .floor { stroke: #f0a54a; fill: #f0a54a; }
  }
"""


class Scale(NamedTuple):
    """Powers of ten from low to high over a length."""
    low: int
    high: int
    length: float

    def place(self, value):
        return (log10(value) - self.low) / (self.high - self.low) * self.length

    def ticks(self):
        return [10 ** power for power in range(self.low, self.high + 1)]


def scale_over(values, length):
    low = floor(log10(min(values)))
    return Scale(low, max(ceil(log10(max(values))), low + 1), length)


def short(size):
    return f"{size // 1_000_000}M" if size >= 1_000_000 else f"{size // 1_000}k"


def points_of(figures, measured, parts):
    """(size, ours, floor) for every size that was measured."""
    sizes = sorted(size for name, size in figures if name == measured)
    return [(size, figures[measured, size].processor,
             floor_of(figures, parts, size).processor) for size in sizes]


def coordinate(value):
    return f"{value:.1f}"


def curve(kind, points, x, y, shape):
    places = [(x.place(size), PANEL_HEIGHT - y.place(time)) for size, time in points]
    yield (f'<polyline class="{kind}" points="'
           + " ".join(f"{coordinate(a)},{coordinate(b)}" for a, b in places) + '"/>')
    for a, b in places:
        yield shape.format(kind=kind, x=coordinate(a), y=coordinate(b),
                           left=coordinate(a - 3.5), top=coordinate(b - 3.5))


CIRCLE = '<circle class="{kind}" cx="{x}" cy="{y}" r="3.5"/>'
SQUARE = '<rect class="{kind}" x="{left}" y="{top}" width="7" height="7"/>'


def grid(x, y):
    for size in x.ticks():
        at = coordinate(x.place(size))
        yield f'<line class="grid" x1="{at}" y1="0" x2="{at}" y2="{PANEL_HEIGHT}"/>'
        yield (f'<text class="tick" x="{at}" y="{PANEL_HEIGHT + 15}" text-anchor="middle">'
               f"{short(size)}</text>")
    for time in y.ticks():
        at = coordinate(PANEL_HEIGHT - y.place(time))
        label = f"{time / 1000:g} s" if time >= 1000 else f"{time:g} ms"
        yield f'<line class="grid" x1="0" y1="{at}" x2="{PANEL_WIDTH}" y2="{at}"/>'
        yield f'<text class="tick" x="-6" y="{at}" dy="3.5" text-anchor="end">{label}</text>'


def panel(number, name, points):
    x = scale_over([size for size, _, _ in points], PANEL_WIDTH)
    y = scale_over([time for _, *times in points for time in times], PANEL_HEIGHT)
    left = LEFT + number % PER_LINE * (PANEL_WIDTH + GAP_X)
    top = TOP + number // PER_LINE * (PANEL_HEIGHT + GAP_Y)
    yield f'<g transform="translate({left} {top})">'
    yield f'<text class="name" x="0" y="-12">{escape(name)}</text>'
    yield from grid(x, y)
    yield from curve("floor", [(size, time) for size, _, time in points], x, y, SQUARE)
    yield from curve("ours", [(size, time) for size, time, _ in points], x, y, CIRCLE)
    yield "</g>"


def described(name, points):
    size, ours, below = points[-1]
    return (f"{name}: {milliseconds(ours)} ms at {size:,}, the floor {milliseconds(below)} ms.")


def legend(width):
    yield f'<g transform="translate({width - 250} 26)">'
    yield ('<line class="ours" x1="0" y1="0" x2="34" y2="0" stroke-width="2"/>'
           '<circle class="ours" cx="17" cy="0" r="3.5"/>'
           '<text x="42" y="4">Quorbind</text>')
    yield ('<line class="floor" x1="120" y1="0" x2="154" y2="0" stroke-width="2" '
           'stroke-dasharray="5 4"/><rect class="floor" x="133.5" y="-3.5" width="7" height="7"/>'
           '<text x="162" y="4">floor</text>')
    yield "</g>"


def picture(figures):
    panels = [(name, points_of(figures, measured, parts)) for name, measured, parts in PANELS]
    lines = -(-len(panels) // PER_LINE)
    width = LEFT + PER_LINE * (PANEL_WIDTH + GAP_X) - GAP_X + 24
    height = TOP + lines * (PANEL_HEIGHT + GAP_Y) - GAP_Y + 34
    description = " ".join(described(name, points) for name, points in panels)
    drawn = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
        f'width="{width}" height="{height}" role="img" aria-labelledby="title description">',
        '<title id="title">What operations cost against their size, beside the floor under each'
        "</title>",
        f'<desc id="description">{escape(description)}</desc>',
        f"<style>{STYLE}</style>",
        f'<rect class="ground" width="{width}" height="{height}"/>',
        f'<text class="head" x="{LEFT}" y="31">Processor time against entries</text>',
        *legend(width),
    ]
    for number, (name, points) in enumerate(panels):
        drawn += panel(number, name, points)
    return "\n".join([*drawn, "</svg>"]) + "\n"
