#!/usr/bin/env python3
"""Corrects one label, in Python over ctypes.

    fix_label.py 127.0.0.1:8470 < label.txt

The library is found where the system's loader finds it; POSTWRIGHT_LIBRARY names another file.
"""

import ctypes
import os
import sys

DEFAULT_MATCH = 32
STREET_LINE, CITY, STATE, ZIP = 8, 10, 11, 12


class Postwright:
    """The part of postwright/postwright.h that correcting a label takes."""

    def __init__(self, service):
        library = ctypes.CDLL(os.environ.get("POSTWRIGHT_LIBRARY", "libpostwright-core.so.0"))
        self._fix = library.postwright_fix
        self._fix.argtypes = [ctypes.c_char_p, ctypes.c_size_t, ctypes.c_void_p, ctypes.c_void_p,
                              ctypes.POINTER(ctypes.c_void_p)]
        self._fix.restype = ctypes.c_int32
        self._text = self._text_function(library.postwright_address_text, ctypes.c_void_p)
        self._element = self._text_function(library.postwright_address_element, ctypes.c_void_p,
                                            ctypes.c_int32)
        self._result_text = self._text_function(library.postwright_result_text, ctypes.c_int32)
        self._free = library.postwright_address_free
        self._free.argtypes = [ctypes.c_void_p]
        self._free.restype = None
        if library.postwright_set_service(service.encode(), None) != 0:
            raise ValueError(f"{service!r} is no host")

    @staticmethod
    def _text_function(function, *arguments):
        function.argtypes = arguments
        function.restype = ctypes.c_char_p
        return lambda *values: function(*values).decode()

    def fix(self, label):
        """Returns the corrected label and its street line, city, state and ZIP code."""
        text = label.encode()
        address = ctypes.c_void_p()
        result = self._fix(text, len(text), None, None, ctypes.byref(address))
        if result != DEFAULT_MATCH:
            raise ValueError(self._result_text(result))
        try:
            elements = [self._element(address, e) for e in (STREET_LINE, CITY, STATE, ZIP)]
            return self._text(address), elements
        finally:
            self._free(address)


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: fix_label.py HOST:PORT < LABEL")
    try:
        fixed, elements = Postwright(sys.argv[1]).fix(sys.stdin.read())
    except (OSError, ValueError) as failure:
        sys.exit(f"fix_label.py: {failure}")
    print(fixed)
    print("elements:", *elements, sep="\n  ", file=sys.stderr)


if __name__ == "__main__":
    main()
