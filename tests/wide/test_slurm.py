"""Slurm itself: a controller and four node daemons on this machine, for fewer labels than the page has."""

import os
import pathlib
import subprocess

import pytest

ROOT = pathlib.Path(__file__).parents[2]
BIN = pathlib.Path(os.environ["POSTWRIGHT_BIN"])


def test_an_array_loses_no_record(capfd):
    done = subprocess.run([ROOT / "scripts/try-slurm.sh", "100000", BIN / "postwright"])
    said = capfd.readouterr()
    if done.returncode == 77:
        pytest.skip(said.err)
    print(f"\n{said.out}", end="")
    assert done.returncode == 0, said.err
