"""What the tests of the package share: the programs of the build, and a scripted service."""

import contextlib
import http.server
import os
import threading
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
PROGRAMS = Path(os.environ["POSTWRIGHT_PROGRAMS"])


@contextlib.contextmanager
def serving(answer):
    """A server: `answer`, given the number of GETs so far, returns a status and a body. It runs on a
    thread of this process, so it hangs if a call under test keeps the interpreter's lock."""

    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            asked.append(self.path)
            status, body = answer(len(asked))
            self.send_response(status)
            self.send_header("Content-Length", str(len(body)))
            with contextlib.suppress(ConnectionError):
                self.end_headers()
                self.wfile.write(body.encode())

        def log_message(self, *_):
            pass

    asked = []
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    thread = threading.Thread(target=server.serve_forever, args=[0.01])
    thread.start()
    try:
        yield f"127.0.0.1:{server.server_port}", asked
    finally:
        server.shutdown()
        thread.join()
        server.server_close()

