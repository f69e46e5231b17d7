# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Figures, their targets, and how they are printed."""
from dataclasses import dataclass


@dataclass
class Figure:
    what: str
    value: float
    unit: str
    target: float | None = None  # the value has to stay below
    note: str = ""

    @property
    def verdict(self):
        if self.target is None:
            return ""
        return "met" if self.value < self.target else "MISSED"


def percentile(values, share):
    """The smallest value that at least this share of the values does not exceed."""
    ordered = sorted(values)
    return ordered[max(0, -(-len(ordered) * int(share * 100) // 100) - 1)]


def number(value):
    return f"{value:,.0f}" if abs(value) >= 1000 else f"{value:.4g}"


def print_table(title, figures):
    print(f"\n{title}")
    width = max([len(figure.what) for figure in figures], default=0)
    for figure in figures:
        target = f"target < {number(figure.target)}" if figure.target is not None else ""
        line = f"  {figure.what:<{width}}  {number(figure.value):>10} {figure.unit:<10} {target:<16} {figure.verdict:<7}"
        print(f"{line}{figure.note}".rstrip(), flush=True)
