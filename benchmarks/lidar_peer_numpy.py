#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""NumPy on the tile of bench_lidar: packed records, then one contiguous array a field.

Run after bench_lidar, which makes the file: lidar_peer_numpy.py FOLDER. One thread.
"""
import statistics
import sys
import time

import numpy as np

RECORD = np.dtype([('head', 'V8'), ('echo_count', 'u1'), ('echo', '<f8', (4, 3)),
                   ('intensity', '<i2', (4,)), ('range', '<f8', (4,)), ('value', '<f8'),
                   ('reserved', 'V24'), ('sensor', '<f8', (3,)), ('code', '<i2'),
                   ('byte_a', 'u1'), ('gain', 'u1'), ('byte_b', 'u1'), ('byte_c', 'u1')])
CHECKSUM = 1.57198571e+11
ROUNDS = 9


def arrays_of(records):
    arrays = {}
    for name in RECORD.names:
        if name in ('head', 'reserved'):
            continue
        field = records[name]
        if field.ndim == 1:
            arrays[name] = np.ascontiguousarray(field)
            continue
        for place in np.ndindex(field.shape[1:]):
            arrays[name, place] = np.ascontiguousarray(field[(slice(None), *place)])
    return arrays


def checksum(arrays):
    return float(arrays['echo', (3, 0)][::16].sum() + arrays['gain'][::16].sum(dtype=float))


def measure(name, read):
    found = checksum(arrays_of(read()))
    if abs(found / CHECKSUM - 1) > 1e-8:
        sys.exit(f'{name}: wrong checksum {found:.9g}')
    times = []
    for _ in range(ROUNDS):
        start = time.perf_counter()
        arrays_of(read())
        times.append(1000 * (time.perf_counter() - start))
    print(f'{name}: {statistics.median(times):.1f} ms')


def main():
    tile = sys.argv[1] + '/tile_1M.bin'
    measure('numpy.fromfile and copies', lambda: np.fromfile(tile, RECORD, offset=4))
    measure('numpy.memmap and copies', lambda: np.memmap(tile, RECORD, 'r', 4))


main()
