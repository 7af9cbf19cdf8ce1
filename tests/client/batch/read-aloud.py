#!/usr/bin/python3
"""Hears the batch window as a screen reader does: through AT-SPI, from the window's own bridge, while
the keys are pressed that a person would press.

usage: dbus-run-session -- read-aloud.py BATCH-HOST

Debian's own Python, which is the one that has gi. What it hears is on standard output.
"""

import http.server
import os
import subprocess
import sys
import tempfile
import threading
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LABELS = """Jo Doe
12 north main street
Austin, TX 78701

Al Fox
16 Main St
Austin, TX 78701

Old Mill Road
Austin, TX 78701

Ed Roe
20 Elm St
Austin, TX 78701
"""

KNOWN = "<DPVConfirmation>Y</DPVConfirmation><DPVFootnotes>AABB</DPVFootnotes>"
ANSWERS = {  # by the house number in the question
    "12": "<Address2>12 N MAIN ST</Address2>{}<Zip4>1201</Zip4>" + KNOWN,
    "16": "<Address2>61 MAIN ST</Address2>{}" + KNOWN,
    "20": "<Address2>20 ELM ST</Address2>{}",
}
PLACE = "<City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5>"

# The key pressed, and each part of what is then read aloud.
STEPS = [
    (None, ["Al Fox", "The number “16” became “61”.", "Doubtful"]),  # selected by itself
    ("Home", ["12 north main street",
              "north changed to N: directional in standard form", "ZIP+4 added: 1201",
              "Fixed. Confirmed."]),
    ("Down", ["Al Fox", "Doubtful"]),
    ("F2", ["As corrected: Al Fox", "16 changed to 61", "The number “16” became “61”."]),
    ("Down", ["As typed: Al Fox"]),
    ("Escape", ["Al Fox", "Doubtful"]),
    ("F8", ["Old Mill Road", "There is no house number.", "Error"]),
    ("F2", ["Address to correct", "There is no house number."]),
    ("Escape", ["Old Mill Road"]),
    ("Down", ["20 Elm St", "Unchanged. Form only, nobody has checked the street."]),
    ("ctrl+f", ["Search in both texts"]),
    ("Escape", ["20 Elm St"]),
    ("alt+y", ["Save Report"]),
]
BARS = ["Corrected 1 of 4", "directional in standard form 1 of 4", "Doubtful, not decided on 1 of 4"]


class Service(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        found = [answer for number, answer in ANSWERS.items() if f"%3E{number}%20" in self.path]
        address = found[0].format(PLACE) if found else "<Error><Number>1</Number></Error>"
        body = f"<R><Address>{address}</Address></R>".encode()
        self.send_response(200)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


def words(accessible):
    return " ".join(filter(None, [accessible.get_name(), accessible.get_description()]))


def spoken(accessible):
    """What a screen reader says of what has the focus: of a cell its row, and of which list."""
    if accessible.get_role() != Atspi.Role.TABLE_CELL:
        return words(accessible)
    table = accessible.get_parent()
    row = Atspi.Table.get_row_at_index(table, accessible.get_index_in_parent())
    cells = [Atspi.Table.get_accessible_at(table, row, column)
             for column in range(Atspi.Table.get_n_columns(table))]
    return " | ".join([*map(words, cells), words(table)])


class Listener:
    def __init__(self):
        self.said = ""
        self.focused = None
        self.loop = GLib.MainContext.default()
        self.listener = Atspi.EventListener.new(self.hear)
        for event in ("object:state-changed:focused", "object:selection-changed"):
            self.listener.register(event)

    def hear(self, event):
        if event.type == "object:state-changed:focused" and event.detail1:
            self.focused = event.source
        if self.focused is not None:
            try:
                self.said = spoken(self.focused)
            except GLib.Error:  # gone meanwhile
                pass

    def await_words(self, parts):
        for _ in range(600):
            while self.loop.iteration(False):
                pass
            if all(part in self.said for part in parts):
                return True
            time.sleep(0.05)
        return False


def bars(accessible):
    """The progress bars below an accessible that are shown, as they are read."""
    if accessible is None or not accessible.get_state_set().contains(Atspi.StateType.SHOWING):
        return []
    if accessible.get_role() == Atspi.Role.PROGRESS_BAR:
        return [words(accessible)]
    children = range(accessible.get_child_count())
    return sum((bars(accessible.get_child_at_index(child)) for child in children), [])


def window_of(accessible):
    while accessible.get_role() not in (Atspi.Role.DIALOG, Atspi.Role.FRAME):
        accessible = accessible.get_parent()
    return accessible


def listen(host, server, labels):
    listener = Listener()
    program = subprocess.Popen([host, "--server", f"127.0.0.1:{server}", labels],
                               stdout=subprocess.DEVNULL)
    try:
        title = ["xdotool", "search", "--sync", "--onlyvisible", "--name", "Fix Addresses"]
        window = subprocess.check_output(title, text=True, timeout=60).split()[-1]
        subprocess.run(["xdotool", "windowfocus", "--sync", window], check=True, timeout=60)
        for key, parts in STEPS:
            if key:
                listener.said = ""
                subprocess.run(["xdotool", "key", key], check=True, timeout=60)
            if not listener.await_words(parts):
                sys.exit(f"after {key}: heard {listener.said!r}, not {parts}")
            print(f"{key}: {listener.said}")
        read = bars(window_of(listener.focused))
        print("\n".join(read))
        if missing := [bar for bar in BARS if bar not in read]:
            sys.exit(f"the summary's bars do not read {missing}")
    finally:
        program.kill()
        program.wait()


def main():
    service = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Service)
    threading.Thread(target=service.serve_forever, daemon=True).start()
    screen = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24"],
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    try:
        os.environ["DISPLAY"] = ":" + screen.stdout.readline().strip()
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        Atspi.init()
        with tempfile.NamedTemporaryFile("w", suffix=".txt") as labels:
            labels.write(LABELS)
            labels.flush()
            listen(sys.argv[1], service.server_address[1], labels.name)
    finally:
        screen.kill()
        screen.wait()


main()
