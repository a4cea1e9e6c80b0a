#!/usr/bin/env python3
"""Times what a program waits for as it loads the module: from dlopen or LoadLibrary to the return of the first call,
self-tests and integrity test included, and a repetition of those by ZUL_PowerUpTests; each in a new process.

usage: module_load.py MODULE LOADER [LAUNCHER]"""
import statistics
import subprocess
import sys

PROCESSES = 20

if len(sys.argv) < 3:
    sys.exit(__doc__)
command = [*sys.argv[3:], sys.argv[2], sys.argv[1], "time"]
times = []
for _ in range(PROCESSES):
    printed = subprocess.run(command, check=True, capture_output=True, text=True).stdout.split()
    times.append([int(printed[2]) / 1000, int(printed[3]) / 1000])
print(f"{f'{PROCESSES} processes':28} {'median ms':>9} {'longest ms':>10}")
for name, column in (("load to first call", 0), ("ZUL_PowerUpTests", 1)):
    own = [row[column] for row in times]
    print(f"{name:28} {statistics.median(own):9.2f} {max(own):10.2f}")
