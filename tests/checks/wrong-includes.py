#!/usr/bin/env python3
"""Puts wrong includes into a copy of the tree and expects check-includes.py to name each.

    wrong-includes.py SOURCE_DIR
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

ROOMS = ["apps", "client", "common", "core", "platform", "postal", "python", "service"]

# A file to add, and what it includes.
WRONG = [
    ("service/http/Wrong.cpp", "service/gateway/Gateway.h"),
    ("service/upstream/Wrong.h", "microhttpd.h"),
    ("apps/addressbook/book/Wrong.cpp", "apps/addressbook/window/AddressBookWindow.h"),
    ("apps/addressbook/widgets/Wrong.cpp", "apps/addressbook/dialogs/FixDialog.h"),
    ("client/Wrong.cpp", "client/batch/BatchView.h"),
    ("client/Wrong.h", "postwright/BatchOptions.h"),
    ("common/Wrong.cpp", "QString"),
]


def copy_tree(source, root):
    for room in ROOMS:
        for path in (source / room).rglob("*"):
            if path.suffix in (".h", ".cpp") or path.name == "README.md":
                copy = root / path.relative_to(source)
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(path, copy)


def main():
    source = pathlib.Path(sys.argv[1])
    expected = ["postal/wrong: no README has a row for it"]
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        copy_tree(source, root)
        for name, header in WRONG:
            (root / name).write_text(f'#include "{header}"\n')
            expected.append(f"{name}:1: {pathlib.Path(name).parent} may not include {header}")
        (root / "postal/wrong").mkdir()
        (root / "postal/wrong/Wrong.cpp").write_text("")
        done = subprocess.run([sys.executable, source / "scripts/check-includes.py", root],
                              capture_output=True, text=True)
    said = done.stdout.split("\n")
    missed = [line for line in expected if line not in said]
    print("\n".join(missed + ([done.stdout, done.stderr] if missed else [])))
    return 1 if missed or done.returncode != 1 else 0


if __name__ == "__main__":
    sys.exit(main())
