#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reads LAS files of bench_lidar_import into arrays with NumPy and prints the seconds."""
import sys
import time

import numpy

FIELDS = [("x", "<i4"), ("y", "<i4"), ("z", "<i4"), ("intensity", "<u2"), ("returns", "u1"),
          ("flags", "u1"), ("class", "u1"), ("user", "u1"), ("angle", "<i2"), ("line", "<u2"),
          ("time", "<f8")]

start = time.perf_counter()
arrays = []
count = 0
for name in sys.argv[1:]:
    points = numpy.fromfile(name, dtype=FIELDS, offset=375)
    count += len(points)
    arrays += [points["x"] * 0.001 + 384000, points["y"] * 0.001 + 6675000, points["z"] * 0.001]
    arrays += [numpy.ascontiguousarray(points[name]) for name in ("intensity", "returns", "time")]
print(f"{count} points in {time.perf_counter() - start:.3f} s")
