#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main job end to end in a throw-away home: ./dev demo"""
import os
import shutil
import signal
import sys
import time

sys.dont_write_bytecode = True
from desktop import (ROOT, DesktopError, Event, OwnDisplays, Picture, Program, best_for_this_machine,
                     seconds_from_now, wait_until)

PICTURES = os.path.join(ROOT, "build/demo")
ALERT_IN = 6  # seconds
FADE_IN = 0.8  # seconds from the alert's first frame to its full brightness, with some air
SILENCE = 5  # seconds in which a second alert would have come


class Steps:
    def __init__(self):
        self.number = 0

    def __call__(self, text):
        self.number += 1
        print(f"{self.number:2}. {text}", flush=True)


def note(text):
    print(f"    {text}", flush=True)


def clock(moment):
    return time.strftime("%H:%M:%S", time.localtime(moment))


def desktop_for_here():
    """The person's own displays, or virtual ones."""
    return OwnDisplays() if OwnDisplays.exist() else best_for_this_machine()()


def tell_desktop(step, desktop):
    if isinstance(desktop, OwnDisplays):
        step("Using your own displays, with a throw-away home: your calendars and settings stay untouched.")
        return
    server = {"xorg": "an X server with openbox", "sway": "the Wayland compositor sway"}[desktop.kind]
    step(f"This machine shows no display, so here are {len(desktop.outputs)} virtual ones, on {server}:")
    for number, output in enumerate(desktop.outputs, 1):
        note(f"display {number}: {output.width} x {output.height}")


def write_calendar(step, program):
    event = Event("Design review", seconds_from_now(60 + ALERT_IN))
    path = program.add(event, "Work")
    step(f"Wrote a calendar with the video meeting “{event.title}”, which starts at {clock(event.start)}:")
    note(path)
    return event


def wait_for_alert(step, program, event):
    step(f"Started Quorvane (process {program.process.pid}). One minute before the meeting, at {clock(event.due)}, "
         f"it has to cover every display.")
    shown = program.wait_shown(event.meeting_id(), ALERT_IN + 10)
    step(f"The alert came {1000 * (shown - event.due):.0f} ms after {clock(event.due)}.")


def take_pictures(step, desktop):
    time.sleep(FADE_IN)
    taken = desktop.screenshot(PICTURES)
    if not taken:
        step("This desktop lets no other program take pictures, so none are saved: please look yourself.")
        return
    for path in taken:
        fault = Picture(path).why_no_alert()
        if fault:
            raise DesktopError(f"a display does not show the alert: {fault}")
    step("A picture of each display, each of which shows the alert:")
    for path in taken:
        note(os.path.relpath(path, ROOT))


def acknowledge(step, desktop, program, event):
    if isinstance(desktop, OwnDisplays):
        step("Now it is your turn: please press Return (within a minute).")
        program.wait_acknowledged(event.meeting_id(), 60)
        step("Thank you: Quorvane has it in its ledger.")
    else:
        desktop.press("Return")
        program.wait_acknowledged(event.meeting_id())
        step("Pressed Return, without a click before; Quorvane has it in its ledger.")


def show_ledger(step, program, event):
    step(f"The ledger says ({os.path.basename(program.ledger_path)}):")
    for key, record in program.ledger().items():
        name = event.title if key == event.meeting_id() else key[:12]
        state = "acknowledged" if record["acknowledged"] else "not acknowledged"
        note(f"“{name}”: alert shown at {clock(record['shownAt'])}, {state}")


def crash_and_restart(step, program):
    program.kill()
    step("Killed Quorvane with SIGKILL, as a crash would.")
    program.start()
    step(f"Started it again; it must not alert for this meeting again. Watching for {SILENCE} seconds ...")
    if not program.stays_silent(SILENCE):
        raise DesktopError("the acknowledged meeting alerted again after the restart")
    step("No alert: the acknowledgment has outlived the crash.")
    status = program.stop()
    if status:
        raise DesktopError(f"Quorvane ended with status {status} when asked to end")


def demo():
    step = Steps()
    shutil.rmtree(PICTURES, ignore_errors=True)
    with desktop_for_here() as desktop:
        tell_desktop(step, desktop)
        program = Program(desktop)
        event = write_calendar(step, program)
        with program:
            wait_for_alert(step, program, event)
            take_pictures(step, desktop)
            acknowledge(step, desktop, program, event)
            if desktop.outputs:
                wait_until("the alert leaving all displays", lambda: alerts_seen(desktop) == 0, 4)
                step("The alert has left every display.")
            show_ledger(step, program, event)
            crash_and_restart(step, program)
            if desktop.outputs and alerts_seen(desktop):
                raise DesktopError("a display shows an alert after the restart")
    print("Done: the alert covered every display, was acknowledged once, and stays acknowledged.")


def alerts_seen(desktop):
    return sum(Picture(path).shows_alert() for path in desktop.screenshot(desktop.folder, "look-"))


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    try:
        demo()
    except DesktopError as error:
        sys.exit(f"The demo failed: {error}")
    except KeyboardInterrupt:
        sys.exit("The demo was stopped.")


if __name__ == "__main__":
    main()
