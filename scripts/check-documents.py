#!/usr/bin/env python3
"""Fails if a page says something untrue.

    check-documents.py snippets SOURCES PAGE...
    check-documents.py commands SOURCES PROGRAMS PAGE...
    check-documents.py pages PAGE...

Snippets: a block of C++ or CMake repeats marked lines of a file that is built and run. The line in
front of the block names the file and the marks, "<!-- from examples/host-guide/client.cpp: fix -->";
in the file the lines are between "guide: fix" and "guide: end", in one place or several. With several
marks ("include, fix"), a blank line separates their lines.

Commands: those of a page's "console" blocks print what the page shows, and those of its "sh" blocks
succeed, run in turn in a folder that holds examples/ and data/, with PROGRAMS as build/bin/. PROGRAMS
and examples/shards/ are on the path. "…" stands for any text; alone on a line, for any lines.
127.0.0.1:8470 is replaced by a free port. A block that cannot be run this way says why in front of
it, "<!-- not run here: needs root -->".

Pages: every link leads to a page, and to a heading if it names one; no page but the changelog has
more than 1,500 words outside its tables and blocks; a page of docs/ ends with where to go next.
"""

import contextlib
import os
import re
import shlex
import signal
import socket
import subprocess
import sys
import tempfile
import textwrap
from pathlib import Path

PORT = "127.0.0.1:8470"
BLOCK = re.compile(r"^(?P<mark>[^\n]*)\n(?P<indent> *)```(?P<language>\w+)\n(?P<text>.*?)^ *```$",
                   re.MULTILINE | re.DOTALL)


def blocks(page, languages):
    """Yields, for each block in these languages, its place, its language, its text, and the mark in
    front of it."""
    whole = page.read_text()
    for block in BLOCK.finditer(whole):
        if block["language"] in languages:
            place = f"{page.name}:{whole.count(chr(10), 0, block.start('text'))}"
            yield place, block["language"], textwrap.dedent(block["text"]), block["mark"].strip()


def marked_lines(source, mark):
    found = re.findall(rf"^ *(?://|#) guide: {re.escape(mark)}\n(.*?)^ *(?://|#) guide: end$",
                       source.read_text(), re.MULTILINE | re.DOTALL)
    return "".join(map(textwrap.dedent, found))


def check_snippets(sources, *pages):
    for page in map(Path, pages):
        for place, _, text, mark in blocks(page, {"c", "cpp", "cmake", "python"}):
            named = re.fullmatch(r"<!-- from (\S+): (.+) -->", mark)
            if not named:
                yield f"{place}: does not say which file's lines these are"
                continue
            source = Path(sources, named[1])
            lines = "\n".join(marked_lines(source, name) for name in named[2].split(", "))
            if text != lines:
                yield f"{place}: differs from {named[1]}, which has:\n{lines}"


def is_whole(command):
    return not subprocess.run(["bash", "-n", "-c", command], capture_output=True).stderr


def console_commands(text):
    """Yields each command after a "$ ", with what it prints."""
    lines = text.splitlines(keepends=True)
    while lines:
        command = lines.pop(0).removeprefix("$ ")
        while lines and not is_whole(command):
            command += lines.pop(0)
        answer = ""
        while lines and not lines[0].startswith("$ "):
            answer += lines.pop(0)
        yield command, answer


def page_commands(page):
    """Yields each command to run: its place, the command, and what it prints, or None if that does
    not matter."""
    for place, language, text, mark in blocks(page, {"console", "sh"}):
        if re.fullmatch(r"<!-- not run here: .+ -->", mark):
            continue
        if language == "sh":
            yield place, f"(set -e\n{text})\n", None
        elif not text.startswith("$ "):
            sys.exit(f"{place}: a console block begins with a prompt, '$ '")
        else:
            for command, answer in console_commands(text):
                yield place, command, answer


def add_programs(folder, programs, port):
    """Puts the programs into the folder; the service's default port is replaced by a free one."""
    options = {"postwright-verifyd": f'[[ "$*" == *--listen* ]] || set -- "$@" --listen {port}'}
    folder.mkdir(parents=True)
    for program in Path(programs).resolve().iterdir():
        wrapper = folder / program.name
        wrapper.write_text(f"#!/usr/bin/env bash\n{options.get(program.name, '')}\n"
                           f'exec {shlex.quote(str(program))} "$@"\n')
        wrapper.chmod(0o755)


def session(commands, streams):
    """The commands as one script that keeps what each prints and its status. A command in the
    background is given time to print what it should."""
    script = "trap 'kill $(jobs -p) 2> /dev/null' EXIT\n"
    for number, (_, command, answer) in enumerate(commands):
        output = f"{streams}/{number}"
        script += f"{{ {command}}} > {output} 2>&1\necho $? > {output}.status\n"
        if command.rstrip().endswith("&"):
            lines = answer.count("\n")
            script += (f"for ((i = 0; i < 100; ++i)); do (($(wc -l < {output}) >= {lines})) && break;"
                       " sleep 0.05; done\n")
    return script


def prints(command, printed, answer):
    lines = re.sub("^…\\\\\n", "(.*\n)*", re.escape(answer), flags=re.MULTILINE)
    pattern = re.compile(lines.replace("…", "[^\n]*"))
    if command.rstrip().endswith("&"):  # goes on printing
        return pattern.match(printed)
    return pattern.fullmatch(printed if not printed or printed.endswith("\n") else printed + "\n")


def run_page(page, sources, programs, scratch):
    with socket.create_server(("127.0.0.1", 0)) as probe:
        port = "127.0.0.1:%d" % probe.getsockname()[1]
    home, streams = scratch / "home", scratch / "streams"
    streams.mkdir()
    add_programs(home / "build/bin", programs, port)
    (home / "build/lib").symlink_to(Path(programs).resolve().parent / "lib")
    subprocess.run(["cp", "-r", f"{sources}/examples", f"{sources}/data", home], check=True)
    commands = [(place, command.replace(PORT, port), answer and answer.replace(PORT, port))
                for place, command, answer in page_commands(page)]
    path = f"{home}/build/bin:{home}/examples/shards:{os.environ['PATH']}"
    environment = os.environ | {
        "PATH": path, "HOME": str(home), "XDG_CACHE_HOME": str(home / ".cache"), "no_proxy": "*",
        "XDG_DATA_HOME": str(home / ".local/share"), "POSTWRIGHT_SERVER": "",
        "XDG_RUNTIME_DIR": str(scratch), "QT_QPA_PLATFORM": "offscreen",
        "QT_LOGGING_RULES": "default.warning=false"}  # about what the offscreen platform cannot do
    shell = subprocess.Popen(["bash", "-c", session(commands, streams)], cwd=home, env=environment,
                             stdin=subprocess.DEVNULL, start_new_session=True)
    try:
        shell.wait(timeout=60)
    except subprocess.TimeoutExpired:
        pass  # reported below, as the first command without a status
    with contextlib.suppress(ProcessLookupError):  # ends what the commands have left running
        os.killpg(shell.pid, signal.SIGKILL)
    for number, (place, command, answer) in enumerate(commands):
        if not (streams / f"{number}.status").exists():
            yield f"{place}: did not end:\n{command}"
            break
        printed = (streams / f"{number}").read_text()
        status = (streams / f"{number}.status").read_text().strip()
        if answer is None and status != "0":
            yield f"{place}: ended with status {status}:\n{command}{printed}"
        if answer is not None and not prints(command, printed, answer):
            yield f"{place}: {command}printed\n{printed}but the page has\n{answer}"


def check_commands(sources, programs, *pages):
    for page in map(Path, pages):
        with tempfile.TemporaryDirectory() as scratch:
            yield from run_page(page, sources, programs, Path(scratch))


def anchors(page):
    headings = re.findall(r"^#+ (.*)$", page.read_text(), re.MULTILINE)
    return {re.sub(r"[^\w -]", "", heading).lower().replace(" ", "-") for heading in headings}


def check_pages(*pages):
    for page in map(Path, pages):
        prose = re.sub(r"^ *```.*?^ *```$", "", page.read_text(), flags=re.MULTILINE | re.DOTALL)
        for name, anchor in re.findall(r"\]\(([^)#\s:]*)#?([^)\s:]*)\)", prose):
            target = page.parent / name if name else page
            if not target.exists():
                yield f"{page.name}: there is no {name}"
            elif anchor and anchor not in anchors(target):
                yield f"{page.name}: {target.name} has no heading #{anchor}"
        words = len(re.sub(r"^ *\|.*$", "", prose, flags=re.MULTILINE).split())
        if words > 1500 and page.name != "CHANGELOG.md":
            yield f"{page.name}: has {words} words outside its tables and blocks"
        if page.parent.name == "docs" and "\nWhat comes next: " not in prose[-500:]:
            yield f"{page.name}: does not end with where to go next"


def main():
    check = {"snippets": check_snippets, "commands": check_commands, "pages": check_pages}[sys.argv[1]]
    faults = list(check(*sys.argv[2:]))
    print(*faults, sep="\n")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
