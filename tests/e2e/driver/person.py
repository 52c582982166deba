"""What a person does with the program, by keys alone."""
from . import keyboard
from .waiting import TimedOut, until


def title_field(program):
    """The title field of the new prompt's editor, with the keyboard."""
    fields = until(lambda: [field for sheet in program.ui.all("New Prompt") for field in sheet.all(role="text")],
                   "the editor's fields")
    field = fields[0]
    until(lambda: field.is_focused, "the title field to have the keyboard")
    return field


def editor_gone(program):
    program.ui.gone("Prompt text", "text")


def begin_prompt(program, title, body):
    """Writes title and body into the editor; the main window must be active."""
    ui = program.ui
    keyboard.press("ctrl+n")
    title_field(program)
    keyboard.type_text(title)
    for _ in range(2):  # the tags stand between title and body
        keyboard.press("Tab")
    editor = ui.find("Prompt text", "text")
    until(lambda: editor.is_focused, "the body to have the keyboard")
    keyboard.type_text(body)
    until(lambda: editor.text == body, "the body to hold what was typed")


def save_prompt(program, title):
    """Saves what the editor holds and sees it in the list."""
    keyboard.press("ctrl+s")
    editor_gone(program)
    until(lambda: title in list_rows(program), f"“{title}” in the list")


def make_prompt(program, title, body):
    window = program.main_window()
    until(lambda: window.has_keyboard, "the main window to have the keyboard")
    begin_prompt(program, title, body)
    save_prompt(program, title)


def search_field(program):
    """The panel's search field, with the keyboard."""
    field = program.ui.find("Search prompts", "text")
    until(lambda: field.is_focused, "the panel's search to have the keyboard")
    return field


def call_panel(program):
    """Presses the hot key, wherever the keyboard is, and waits until the panel can be typed into."""
    keyboard.press_hot_key()
    panel = program.wait_for_panel()
    search_field(program)
    return panel


def search(program, letters, *titles):
    """Types into the panel's search until exactly these rows are there, in this order."""
    keyboard.type_text(letters)
    until(lambda: panel_rows(program) == list(titles), f"the rows {titles} for “{letters}”")


def panel_rows(program):
    """The titles in the panel, from the top."""
    return [row.name for row in program.ui.find("Quick access").all(role="list item")]


def list_rows(program):
    """The titles in the main window's list, from the top."""
    return [row.name for part in program.ui.all("Prompts") for row in part.all(role="list item")]


def fill_in(program, values):
    """Types a value into each field of the fill-in sheet and presses Return after it, the last one included."""
    for name, value in values:
        field = program.ui.find(name, "text")
        until(lambda: field.is_focused, f"the field “{name}” to have the keyboard")
        keyboard.type_text(value)
        until(lambda: field.text == value, f"the field “{name}” to hold what was typed")
        keyboard.press("Return")


def close_main_window(program):
    """By the window manager's own key."""
    window = program.main_window()
    until(lambda: window.has_keyboard, "the main window to have the keyboard")
    keyboard.press("alt+F4")
    try:
        until(lambda: not window.is_visible, "the main window to close", 5)
    except TimedOut:
        # The window manager may still have been busy with the new window: a person would press again.
        keyboard.press("alt+F4")
        until(lambda: not window.is_visible, "the main window to close")
