"""Real key and mouse events, through the X server's own test extension."""
import subprocess

CONTROL, SHIFT, SPACE = "37", "50", "65"  # keycodes: positions, whatever the layout says


def _tool(*arguments):
    subprocess.run(["xdotool", *arguments], check=True, stdout=subprocess.DEVNULL)


def press(*keys):
    """Presses keys or combinations by keysym names: press("ctrl+n", "Return")."""
    _tool("key", "--delay", "15", *keys)


def type_text(text):
    """Types a text, each character as the keys that give it. Line ends are Return."""
    for number, line in enumerate(text.split("\n")):
        if number:
            press("Return")  # the tool itself would send Linefeed, which no keyboard has
        if line:
            _tool("type", "--delay", "8", "--", line)


def press_hot_key():
    """Control+Shift+Space by position, pressed and released one after the other as fingers do."""
    for key in (CONTROL, SHIFT, SPACE):
        _tool("keydown", key)
    for key in (SPACE, SHIFT, CONTROL):
        _tool("keyup", key)


def move_pointer(x, y):
    _tool("mousemove", str(x), str(y))


def click(x, y, button=1, times=1):
    _tool("mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "60", str(button))
