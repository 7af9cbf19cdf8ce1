"""The Dask example with four worker processes, one of which is killed."""

import json
import os
import pathlib
import signal
import subprocess
import sys
import time

import psutil

ROOT = pathlib.Path(__file__).parents[2]
BIN = pathlib.Path(os.environ["POSTWRIGHT_BIN"])
LABELS = 30_000
NAME = "x" * 8_000  # so that all labels are 240 MB, more than a worker may take
MOST = 200 << 20


def test_a_killed_worker_costs_no_label(tmp_path):
    fixed = tmp_path / "fixed"
    with open(tmp_path / "labels.jsonl", "w") as file:
        for number in range(1, LABELS + 1):
            file.write(json.dumps({"id": number, "name": NAME,
                                   "address": f"{number} n main street\naustin tx 78701"}) + "\n")
    environment = os.environ | {"PYTHONPATH": str(BIN.parent / "python"), "HOME": str(tmp_path)}
    with subprocess.Popen([sys.executable, ROOT / "examples/python/dask_labels.py",
                           tmp_path / "labels.jsonl", fixed], env=environment, cwd=tmp_path,
                          stderr=subprocess.PIPE, text=True) as run:
        while run.poll() is None and not list(fixed.glob("*.jsonl")):
            time.sleep(0.01)
        workers = [child for child in psutil.Process(run.pid).children(recursive=True)
                   if "spawn_main" in " ".join(child.cmdline())]
        assert len(workers) == 4
        os.kill(workers[0].pid, signal.SIGKILL)
        most = 0
        while run.poll() is None:
            for worker in psutil.Process(run.pid).children(recursive=True):
                try:
                    most = max(most, worker.memory_info().rss)
                except psutil.Error:
                    pass
            time.sleep(0.05)
        assert run.returncode == 0, run.stderr.read()
    print(f"\n{LABELS} labels, at most {most >> 20} MiB a worker")
    assert (tmp_path / "labels.jsonl").stat().st_size > MOST > most
    files = sorted(fixed.iterdir(), key=lambda path: int(path.stem))
    assert len(files) > 4
    rows = [json.loads(line) for path in files for line in path.read_text().splitlines()]
    assert all(row.pop("name") == NAME for row in rows)
    assert [row["id"] for row in rows] == [*range(1, LABELS + 1)]
    assert all(row["status"] == "fixed" and row["text"] == f"{row['id']} N MAIN ST\nAUSTIN TX 78701"
               for row in rows)
