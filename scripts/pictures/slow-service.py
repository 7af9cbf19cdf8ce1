#!/usr/bin/env python3
"""Sits between a program and the Verify service and delays each answer, so that a run of the batch
window lasts long enough for a picture.

usage: slow-service.py PORT SERVICE-PORT SECONDS
"""

import http.server
import sys
import time
import urllib.request

PORT, SERVICE, SECONDS = int(sys.argv[1]), int(sys.argv[2]), float(sys.argv[3])


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        time.sleep(SECONDS)
        with urllib.request.urlopen(f"http://127.0.0.1:{SERVICE}{self.path}") as answer:
            body = answer.read()
        self.send_response(200)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


http.server.ThreadingHTTPServer(("127.0.0.1", PORT), Handler).serve_forever()
