# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""sway whose displays are windows of another, headless sway: closing the window unplugs the display."""
from .output import SIZES
from .processes import wait_until
from .sway import SwayDesktop


class NestedSwayDesktop(SwayDesktop):
    """As many displays as `sizes` has, beside each other in the first size. QUORVANE_HOST_SWAYSOCK is the socket
    of the sway around it, which calls their windows "wlroots - WL-1" and so on."""

    def __init__(self, sizes=SIZES[:2], **options):
        super().__init__(sizes=sizes[:1], **options)
        self.count = len(sizes)

    def start_display(self):
        super().start_display()
        self.env["QUORVANE_HOST_SWAYSOCK"] = self.env["SWAYSOCK"]
        sway = self.start_sway("nested-sway", [], WLR_BACKENDS="wayland", WLR_WL_OUTPUTS=str(self.count))
        self.outputs = wait_until("starting the nested sway", self._settled_outputs, 15, sway,
                                  self.log("nested-sway"))
        wait_until("giving the nested sway a keyboard", self.has_keyboard)

    def _settled_outputs(self):
        outputs = self.readable_outputs()
        fit = sum(output.width for output in outputs) <= self.sizes[0][0]
        return outputs if len(outputs) == self.count and fit else None
