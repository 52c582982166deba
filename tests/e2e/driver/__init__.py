"""Drives programs on a virtual desktop from outside: real keys and mouse events, windows, clipboard, controls by name."""
