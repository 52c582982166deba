"""The little of Xlib that no command offers: holding a key, and asking the window manager."""
import ctypes

_SUBSTRUCTURE = (1 << 19) | (1 << 20)  # who is told of a message to the root window: the window manager
_CLIENT_MESSAGE = 33
_ASYNCHRONOUS = 1


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class _Event(ctypes.Union):
    _fields_ = [("message", _ClientMessage), ("room", ctypes.c_long * 24)]


def _library():
    library = ctypes.CDLL("libX11.so.6")
    display, number, whole = ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int
    for name, result, arguments in (
            ("XOpenDisplay", display, [ctypes.c_char_p]),
            ("XCloseDisplay", whole, [display]),
            ("XDefaultRootWindow", number, [display]),
            ("XInternAtom", number, [display, ctypes.c_char_p, whole]),
            ("XSync", whole, [display, whole]),
            ("XGrabKey", whole, [display, whole, ctypes.c_uint, number, whole, whole, whole]),
            ("XSendEvent", whole, [display, number, whole, ctypes.c_long, ctypes.POINTER(_Event)])):
        function = getattr(library, name)
        function.restype, function.argtypes = result, arguments
    return library


class Connection:
    """A client of the X server, until it is closed."""

    def __init__(self):
        self._library = _library()
        self._display = self._library.XOpenDisplay(None)
        self._root = self._library.XDefaultRootWindow(self._display)

    def grab_key(self, keycode, modifiers):
        self._library.XGrabKey(self._display, keycode, modifiers, self._root, False, _ASYNCHRONOUS, _ASYNCHRONOUS)
        self._library.XSync(self._display, False)

    def ask_window_manager(self, window, request, *data):
        """Sends a request of the window managers' standard; texts among the data stand for atoms."""
        event = _Event()
        values = [self._atom(value) if isinstance(value, str) else value for value in data]
        event.message = _ClientMessage(type=_CLIENT_MESSAGE, window=window, message_type=self._atom(request), format=32,
                                       data=(ctypes.c_long * 5)(*values))
        self._library.XSendEvent(self._display, self._root, False, _SUBSTRUCTURE, ctypes.byref(event))
        self._library.XSync(self._display, False)

    def _atom(self, name):
        return self._library.XInternAtom(self._display, name.encode(), False)

    def close(self):
        self._library.XCloseDisplay(self._display)
