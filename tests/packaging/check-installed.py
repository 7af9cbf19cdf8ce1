#!/usr/bin/env python3
"""Installs what needs no build under a prefix of its own. Fails where a link of an installed page leads
nowhere, or where the service's unit starts another prefix's program.

  check-installed.py CMAKE BUILD_FOLDER
"""

import pathlib
import re
import subprocess
import sys
import tempfile

LINK = re.compile(r"\]\(([^)#\s]+)(?:#[^)]*)?\)")


def install(cmake, build, prefix):
    for component in ("doc", "licence", "systemd"):
        subprocess.run([cmake, "--install", build, "--prefix", prefix, "--component", component],
                       check=True, stdout=subprocess.DEVNULL)


def dead_links(folder):
    for page in sorted(folder.rglob("*.md")):
        text = re.sub(r"(?ms)^```.*?^```", "", page.read_text(encoding="utf-8"))
        for target in LINK.findall(text):
            if not re.match(r"[a-z]+:", target) and not (page.parent / target).exists():
                yield f"{page.relative_to(folder)}: {target} is not installed"


def main(cmake, build):
    with tempfile.TemporaryDirectory() as prefix:
        install(cmake, build, prefix)
        problems = list(dead_links(pathlib.Path(prefix, "share/doc/postwright")))
        unit = pathlib.Path(prefix, "lib/systemd/system/postwright-verifyd.service")
        if unit.exists() and f"ExecStart={prefix}/bin/postwright-verifyd " not in unit.read_text():
            problems.append(f"{unit.name} does not start {prefix}/bin/postwright-verifyd")
    print("\n".join(problems))
    return bool(problems)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
