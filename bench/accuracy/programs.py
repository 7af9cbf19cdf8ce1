"""The built programs, run as users run them: the service on loopback, the command line against it."""

import contextlib
import json
import os
import subprocess
import tempfile
from pathlib import Path


class Programs:
    def __init__(self, folder, fix_options=()):
        self._folder = Path(folder)
        self._fix_options = list(fix_options)
        for program in ("postwright", "postwright-verifyd", "postwright-base"):
            if not (self._folder / program).exists():
                raise SystemExit(f"accuracy.py: there is no {self._folder / program}; build it, or say where it is with --programs")

    @contextlib.contextmanager
    def service(self, bases):
        """Runs the service on a free port for the length of the block; yields HOST:PORT."""
        command = [self._folder / "postwright-verifyd", "--quiet", "--listen", "127.0.0.1:0"]
        for base in bases:
            command += ["--base", base]
        with subprocess.Popen(command, stderr=subprocess.PIPE, text=True) as service:
            try:
                line = service.stderr.readline()
                if "listening on " not in line:
                    raise SystemExit(f"accuracy.py: the service did not start: {line}{service.stderr.read()}")
                yield line.split("listening on ")[1].strip()
            finally:
                service.terminate()
                service.communicate()

    def make_base(self, csv, base):
        command = [self._folder / "postwright-base", "import", base, csv, "--source", "Made-up addresses", "--quiet"]
        done = subprocess.run(command, capture_output=True, text=True)
        if done.returncode:
            raise SystemExit(f"accuracy.py: no base was made: {done.stderr}")

    def fix(self, server, texts):
        """Returns the record of each text, in order."""
        with tempfile.TemporaryFile("w+", encoding="utf-8") as labels:
            labels.writelines(json.dumps(text) + "\n" for text in texts)
            labels.seek(0)
            run = subprocess.run(
                [self._folder / "postwright", "fix", "--jsonl", "--quiet", "--jobs", str(2 * (os.cpu_count() or 1)),
                 "--server", server, *self._fix_options],
                stdin=labels, stdout=subprocess.PIPE, check=True, encoding="utf-8",
                env={**os.environ, "no_proxy": "*"})
        records = [json.loads(line) for line in run.stdout.splitlines()]
        if len(records) != len(texts):
            raise SystemExit(f"accuracy.py: {len(texts)} labels, {len(records)} records")
        return records
