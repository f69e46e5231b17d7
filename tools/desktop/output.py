# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""One display of a desktop, in pixels of the whole desktop."""
import os
from dataclasses import dataclass

SIZES = ((1280, 720), (1024, 768), (1920, 1080))


@dataclass(frozen=True)
class Output:
    name: str
    width: int
    height: int
    x: int
    y: int

    @property
    def geometry(self):
        return f"{self.width}x{self.height}+{self.x}+{self.y}"

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2


def row(sizes, name, first):
    """Displays of these sizes side by side, named by `name` with numbers from `first` on."""
    outputs, x = [], 0
    for number, (width, height) in enumerate(sizes, first):
        outputs.append(Output(name.format(number), width, height, x, 0))
        x += width
    return outputs


def capture_each(outputs, folder, prefix, capture):
    """Has `capture(output, path)` write one picture per display, `folder`/`prefix`N.png; returns their paths."""
    os.makedirs(folder, exist_ok=True)
    paths = [os.path.join(folder, f"{prefix}{number}.png") for number in range(1, len(outputs) + 1)]
    for output, path in zip(outputs, paths):
        capture(output, path)
    return paths
