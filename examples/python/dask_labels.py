#!/usr/bin/env python3
"""Corrects labels on a Dask cluster: JSON lines in, JSON lines out, one file a partition, in order.

    dask_labels.py 'labels/*.jsonl' fixed/
    dask_labels.py 'labels/*.jsonl' fixed/ --scheduler tcp://head:8786

Each input line is an object with the label as "address"; the output line adds what became of it. An
output file is written when its partition is done, and once more if the worker dies meanwhile.
"""

import argparse
import json

import dask.bag
import dask.distributed
import postwright


# guide: dask
def fix_partition(lines):
    rows = [json.loads(line) for line in lines]
    for row, fix in zip(rows, postwright.fix_many(row["address"] for row in rows)):
        yield json.dumps(row | {"text": fix.text, "status": fix.status.name.lower(),
                                "reason": fix.reason}, ensure_ascii=False)


def fix_files(labels, folder):
    lines = dask.bag.read_text(labels, blocksize="1 MiB")
    lines.map_partitions(fix_partition).to_textfiles(f"{folder}/*.jsonl")
# guide: end


def main():
    options = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    options.add_argument("labels", help="files of JSON lines; a pattern in quotation marks")
    options.add_argument("folder", help="where the corrected ones go")
    options.add_argument("--scheduler", help="address of a running cluster's scheduler; without it, four "
                         "worker processes on this machine")
    options = options.parse_args()
    cluster = {"address": options.scheduler} if options.scheduler else \
        {"n_workers": 4, "threads_per_worker": 1, "dashboard_address": None}
    with dask.distributed.Client(**cluster):
        fix_files(options.labels, options.folder)


if __name__ == "__main__":
    main()
