"""The little of Xlib that no command offers: holding a key, asking the window manager, and taking windows in."""
import ctypes

_SUBSTRUCTURE = (1 << 19) | (1 << 20)  # who is told of a message to the root window: the window manager
_STRUCTURE = 1 << 17  # who is told of a message to all
_CLIENT_MESSAGE = 33
_OVERRIDE_REDIRECT = 1 << 9  # which of the attributes
_NOW = 0
_ASYNCHRONOUS = 1


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class _Attributes(ctypes.Structure):
    """XSetWindowAttributes, in whose middle stands what is wanted of it."""

    _fields_ = [("before", ctypes.c_ulong * 4), ("gravities", ctypes.c_int * 3), ("backing", ctypes.c_ulong * 2),
                ("save_under", ctypes.c_int), ("masks", ctypes.c_long * 2), ("override_redirect", ctypes.c_int),
                ("after", ctypes.c_ulong * 2)]


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
            ("XSendEvent", whole, [display, number, whole, ctypes.c_long, ctypes.POINTER(_Event)]),
            ("XSetErrorHandler", ctypes.c_void_p, [_ERROR_HANDLER]),
            ("XNextEvent", whole, [display, ctypes.POINTER(_Event)]),
            ("XCreateSimpleWindow", number,
             [display, number, whole, whole, ctypes.c_uint, ctypes.c_uint, ctypes.c_uint, number, number]),
            ("XChangeWindowAttributes", whole, [display, number, number, ctypes.POINTER(_Attributes)]),
            ("XMapRaised", whole, [display, number]),
            ("XSetSelectionOwner", whole, [display, number, number, number]),
            ("XAddToSaveSet", whole, [display, number]),
            ("XReparentWindow", whole, [display, number, number, whole, whole]),
            ("XResizeWindow", whole, [display, number, ctypes.c_uint, ctypes.c_uint])):
        function = getattr(library, name)
        function.restype, function.argtypes = result, arguments
    return library


_ERROR_HANDLER = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
_FORGIVING = _ERROR_HANDLER(lambda _display, _error: 0)


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
        self._send(self._root, _SUBSTRUCTURE, window, request, data)

    def forgive(self):
        """From now on an error ends nothing: others' windows may be gone at any moment."""
        self._library.XSetErrorHandler(_FORGIVING)

    def make_window(self, x, y, width, height):
        """One that is above others and no window manager's business, as panels' are."""
        window = self._library.XCreateSimpleWindow(self._display, self._root, x, y, width, height, 0, 0, 0x808080)
        attributes = _Attributes(override_redirect=True)
        self._library.XChangeWindowAttributes(self._display, window, _OVERRIDE_REDIRECT, ctypes.byref(attributes))
        self._library.XMapRaised(self._display, window)
        return window

    def own_selection(self, name, window):
        """Takes a manager's selection, and tells all who wait for one."""
        self._library.XSetSelectionOwner(self._display, self._atom(name), window, _NOW)
        self._send(self._root, _STRUCTURE, self._root, "MANAGER", (_NOW, name, window))

    def take_in(self, window, parent, size):
        self._library.XAddToSaveSet(self._display, window)  # so that it outlives the one that takes it in
        self._library.XReparentWindow(self._display, window, parent, 0, 0)
        self._library.XResizeWindow(self._display, window, size, size)
        self._library.XMapRaised(self._display, window)
        self._send(window, 0, window, "_XEMBED", (_NOW, 0, 0, parent, 0))

    def next_message(self, kind):
        """The data of the next message of this kind to a window of ours."""
        event = _Event()
        while True:
            self._library.XNextEvent(self._display, ctypes.byref(event))
            if event.message.type == _CLIENT_MESSAGE and event.message.message_type == self._atom(kind):
                return list(event.message.data)

    def _send(self, receiver, mask, window, kind, data):
        event = _Event()
        values = [self._atom(value) if isinstance(value, str) else value for value in data]
        event.message = _ClientMessage(type=_CLIENT_MESSAGE, window=window, message_type=self._atom(kind), format=32,
                                       data=(ctypes.c_long * 5)(*values))
        self._library.XSendEvent(self._display, receiver, False, mask, ctypes.byref(event))
        self._library.XSync(self._display, False)

    def _atom(self, name):
        return self._library.XInternAtom(self._display, name.encode(), False)

    def close(self):
        self._library.XCloseDisplay(self._display)
