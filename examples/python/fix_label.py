#!/usr/bin/env python3
"""Corrects one label.

    fix_label.py < label.txt
    fix_label.py 127.0.0.1:8470 < label.txt
"""

import sys

import postwright


def main():
    if len(sys.argv) > 2:
        sys.exit("usage: fix_label.py [HOST:PORT] < LABEL")
    try:
        fix = postwright.fix(sys.stdin.read(), server=sys.argv[1] if len(sys.argv) == 2 else None)
    except (ValueError, postwright.PostwrightError) as fault:
        sys.exit(f"fix_label.py: {fault}")
    print(fix.text)
    if fix.reason_text:
        print(fix.reason_text, file=sys.stderr)
    sys.exit(0 if fix.status <= postwright.Status.FIXED else 1)


if __name__ == "__main__":
    main()
