"""Waiting for a condition, never for a time."""
import os
import time

from gi.repository import GLib

# Seconds until a condition that should come true at once counts as failed; generous, as machines may be busy.
LIMIT = float(os.environ.get("E2E_LIMIT", "20"))


class TimedOut(AssertionError):
    pass


def pump():
    """Lets the assistive tools' library take in what the bus has for it; it answers from stale memory otherwise."""
    context = GLib.MainContext.default()
    while context.pending():
        context.iteration(False)


def until(condition, what, limit=None):
    """What the condition returns, as soon as that is true. Objects that vanish while being asked count as not yet."""
    end = time.monotonic() + (limit or LIMIT)
    trouble = None
    while True:
        pump()
        try:
            result = condition()
            if result:
                return result
        except GLib.Error as error:
            trouble = error
        if time.monotonic() > end:
            raise TimedOut(f"waited in vain: {what}" + (f" ({trouble.message})" if trouble else ""))
        time.sleep(0.02)


def stays(condition, what, seconds=0.6):
    """That something which must not happen doesn't: the condition holds now and for a while."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        pump()
        if not condition():
            raise AssertionError(f"did not last: {what}")
        time.sleep(0.02)
