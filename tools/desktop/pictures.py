# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a picture of a display shows, told by its colours."""
import subprocess
from collections import Counter
from typing import NamedTuple

from .processes import DesktopError

AMBER = ((225, 150, 40), (255, 215, 175))  # the dial's and the first button's colours: sand, amber
EMBER = ((235, 120, 70), (255, 160, 110))
CREAM = ((225, 215, 200), (255, 250, 240))


class Box(NamedTuple):
    """Shares of a picture's width and height."""
    left: float
    top: float
    right: float
    bottom: float


class Picture:
    def __init__(self, path, width=320):
        """Reads a PNG, scaled to `width` without mixing colours."""
        argv = ["convert", path, "-sample", f"{width}x", "-depth", "8", "ppm:-"]
        done = subprocess.run(argv, capture_output=True, check=False)
        if done.returncode:
            raise DesktopError(f"{path} cannot be read: {done.stderr.decode(errors='replace')[-200:]}")
        _, size, _, pixels = done.stdout.split(b"\n", 3)
        self.path = path
        self.width, self.height = (int(side) for side in size.split())
        self.pixels = list(zip(*[iter(pixels)] * 3))

    def pixel(self, x, y):
        """The colour at a position given as shares of width and height."""
        column, row = min(int(x * self.width), self.width - 1), min(int(y * self.height), self.height - 1)
        return self.pixels[row * self.width + column]

    def share(self, low_high):
        """The share of pixels within a range of colours."""
        low, high = low_high
        inside = sum(all(a <= c <= b for a, c, b in zip(low, pixel, high)) for pixel in self.pixels)
        return inside / len(self.pixels)

    def box(self, low_high, top=0.0):
        """Where the pixels within a range of colours lie, below the share `top` of the height; None without any."""
        low, high = low_high
        places = [(index % self.width, index // self.width) for index, pixel in enumerate(self.pixels)
                  if index >= top * len(self.pixels) and all(a <= c <= b for a, c, b in zip(low, pixel, high))]
        if not places:
            return None
        columns, rows = zip(*places)
        return Box(min(columns) / self.width, min(rows) / self.height, (max(columns) + 1) / self.width,
                   (max(rows) + 1) / self.height)

    def colours(self):
        return len(Counter(self.pixels))

    def shows_alert(self):
        """An alert is dark at its edges, though not black as an empty desktop is, and has warm light in the middle, a
        filled button, and light text."""
        return self.why_no_alert() is None

    def why_no_alert(self):
        corners = [self.pixel(x, y) for x in (0.005, 0.995) for y in (0.005, 0.995)]
        if not all(0 < max(corner) < 90 and corner[0] >= corner[2] for corner in corners):
            return f"{self.path}: its corners {corners} are not the alert's"
        warm = max(self.share(AMBER), self.share(EMBER))
        if warm < 0.0015:
            return f"{self.path}: only {warm:.2%} of it has the colour of dial and button"
        if self.share(CREAM) < 0.001:
            return f"{self.path}: only {self.share(CREAM):.2%} of it is text"
        if self.colours() < 40:
            return f"{self.path}: it has only {self.colours()} colours"
        return None

    def difference(self, other):
        """The share of pixels that clearly differ from another picture of the same size."""
        if len(self.pixels) != len(other.pixels):
            return 1.0
        differing = sum(max(abs(a - b) for a, b in zip(one, two)) > 60
                        for one, two in zip(self.pixels, other.pixels))
        return differing / len(self.pixels)
