#!/usr/bin/env python3
"""Corrects labels with Spark, with the package in Spark's Python workers or with the command.

    spark-submit spark_labels.py labels.parquet fixed.parquet
"""

import sys


# guide: spark
def fix_frames(frames):
    import postwright.pandas
    for frame in frames:
        fixed = frame.postwright.fix("label")
        yield frame.assign(text=fixed.text, status=fixed.status.astype(str), reason=fixed.reason)


def fix_labels(labels):
    return labels.mapInPandas(fix_frames, "id long, label string, text string, status string, "
                                          "reason string")
# guide: end


# guide: pipe
def fix_lines(lines):
    return lines.pipe("postwright fix --jsonl --quiet")
# guide: end


def main():
    from pyspark.sql import SparkSession
    spark = SparkSession.builder.getOrCreate()
    fix_labels(spark.read.parquet(sys.argv[1])).write.parquet(sys.argv[2])


if __name__ == "__main__":
    main()
