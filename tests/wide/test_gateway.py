"""Workers at shards that ask one gateway, whose budget is for all of them, and a stand-in for the postal
service's API."""

import collections
import http.server
import json
import os
import pathlib
import re
import signal
import subprocess
import threading
import time
import urllib.parse
import urllib.request

import pytest

ROOT = pathlib.Path(__file__).parents[2]
BIN = pathlib.Path(os.environ["POSTWRIGHT_BIN"])
SHARDS = ROOT / "examples/shards/fix-shards.sh"
WORKERS = 4
LABELS = 400
UNDER_WAY = 4  # calls at once: one that is killed has counted them, and lacks their answers


class PostalApi(http.server.BaseHTTPRequestHandler):
    """Knows each house of Main Street."""
    protocol_version = "HTTP/1.1"

    def answer(self, reply):
        body = json.dumps(reply).encode()
        self.send_response(200)
        self.send_header("Content-Type", "application/json")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def do_POST(self):
        self.rfile.read(int(self.headers["Content-Length"]))
        self.answer({"access_token": "token", "token_type": "Bearer", "expires_in": 28799})

    def do_GET(self):
        number = urllib.parse.parse_qs(urllib.parse.urlsplit(self.path).query)["streetAddress"][0].split()[0]
        self.server.calls.append((time.monotonic(), int(number)))
        self.answer({"address": {"streetAddress": f"{number} MAIN ST", "city": "SPRINGFIELD", "state": "IL",
                                 "ZIPCode": "62701", "ZIPPlus4": "1103"},
                     "additionalInfo": {"DPVConfirmation": "Y"}, "matches": [{"code": "31"}]})

    def log_message(self, *_):
        pass


class Place:
    """A folder with shards, and what works at them."""

    def __init__(self, folder, api):
        self.folder, self.calls, self.running = folder, api.calls, []
        self.url = f"http://127.0.0.1:{api.server_port}"
        self.address = "127.0.0.1:0"
        credentials = folder / "credentials"
        credentials.touch(mode=0o600)
        credentials.write_text("client_id = id\nclient_secret = secret\n")
        labels = folder / "labels.jsonl"
        labels.write_text("".join(json.dumps({"id": number, "address": f"{number} main street\nspringfield il 62701"})
                                  + "\n" for number in range(LABELS)))
        subprocess.run([SHARDS, "split", labels, folder / "shards", str(LABELS // WORKERS)], check=True)

    def start(self, *command, **options):
        self.running.append(subprocess.Popen(command, stdout=subprocess.DEVNULL, text=True, start_new_session=True,
                                             **options))
        return self.running[-1]

    def end(self):
        """Whatever still runs, with all that it has started."""
        for process in self.running:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()

    def gateway(self, budget):
        process = self.start(
            BIN / "postwright-verifyd", "--quiet", "--listen", self.address, "--upstream", "postal-v3",
            "--upstream-url", self.url, "--credentials", self.folder / "credentials", "--cache",
            self.folder / "answers.sqlite", "--budget", budget, stderr=subprocess.PIPE)
        self.address = process.stderr.readline().split()[-1]
        return process

    def workers(self):
        return [self.start(SHARDS, "work", self.folder / "shards", "--server", self.address, "--give-up-after", "2s",
                           stderr=subprocess.DEVNULL, env=os.environ | {
                               "POSTWRIGHT": str(BIN / "postwright"), "SLURM_ARRAY_TASK_ID": str(task),
                               "SLURM_ARRAY_TASK_COUNT": str(WORKERS)})
                for task in range(WORKERS)]

    def await_calls(self, count):
        while len(self.calls) < count:
            time.sleep(0.01)

    def records(self):
        joined = subprocess.run([SHARDS, "join", self.folder / "shards"], check=True, capture_output=True, text=True)
        return [json.loads(line) for line in joined.stdout.splitlines()]


@pytest.fixture
def place(tmp_path):
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), PostalApi) as api:
        api.calls = []
        threading.Thread(target=api.serve_forever, daemon=True).start()
        place = Place(tmp_path, api)
        yield place
        place.end()
        api.shutdown()


def check_records(place):
    assert [(record["id"], record["fixed"]) for record in place.records()] == [
        (number, f"{number} MAIN ST\nSPRINGFIELD IL 62701-1103") for number in range(LABELS)]


def test_workers_share_the_budget(place):
    gateway = place.gateway("40/s")
    began = time.monotonic()
    assert [worker.wait() for worker in place.workers()] == [0] * WORKERS
    took = time.monotonic() - began
    gateway.terminate()
    times = [moment for moment, _ in place.calls]
    shares = collections.Counter(number * WORKERS // LABELS for _, number in place.calls[:LABELS // 2])
    print(f"\n{LABELS} labels in {took:.1f} s, all calls within {times[-1] - times[0]:.1f} s; of the first half "
          f"{', '.join(str(shares[worker]) for worker in range(WORKERS))}")
    assert len(times) == LABELS and times[-1] - times[0] > LABELS / 40 - 1.5
    assert min(shares.values()) > LABELS // 2 // WORKERS // 2
    check_records(place)


def test_nothing_is_asked_twice_after_an_end(place):
    gateway = place.gateway("40/s")
    workers = place.workers()
    place.await_calls(100)
    gateway.kill()
    assert [worker.wait() for worker in workers] == [75] * WORKERS
    before = len(place.calls)

    gateway.wait()
    gateway = place.gateway("250/h")  # of which those made before are a part
    workers = place.workers()
    place.await_calls(250 - UNDER_WAY)
    time.sleep(3)  # longer than they wait for a service that says nothing
    assert len(place.calls) <= 250 and [worker.poll() for worker in workers] == [None] * WORKERS
    with urllib.request.urlopen(f"http://{place.address}/status") as status:
        assert re.search(r"Budget +0 of 250/h left", status.read().decode())
    place.end()

    gateway = place.gateway("none")
    assert [worker.wait() for worker in place.workers()] == [0] * WORKERS
    gateway.terminate()
    twice = len(place.calls) - len({number for _, number in place.calls})
    print(f"\n{before} calls when the gateway was killed, {twice} made again")
    assert twice <= UNDER_WAY
    check_records(place)
