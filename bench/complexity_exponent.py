#!/usr/bin/env python3
"""Fitted growth exponent of each size-swept benchmark in a Google Benchmark JSON report.

Usage: bench_x --benchmark_format=json --benchmark_out=report.json ...; complexity_exponent.py report.json
Prints, per benchmark family, the least-squares slope of log(CPU time) against log(N): 1.0 is linear.
Exits 1 when any slope is above the limit (default 1.05, --limit to change)."""
import json
import math
import sys
from collections import defaultdict


def main(argv):
    limit = 1.05
    paths = []
    words = iter(argv[1:])
    for word in words:
        if word == "--limit":
            limit = float(next(words))
        else:
            paths.append(word)
    points = defaultdict(list)
    for path in paths:
        with open(path) as report:
            for run in json.load(report)["benchmarks"]:
                if run.get("run_type") == "aggregate" or "/" not in run["name"]:
                    continue
                family, size = run["name"].split("/", 1)
                if not size.isdigit():
                    continue
                points[family].append((math.log(int(size)), math.log(run["cpu_time"])))
    worst = 0.0
    for family, xy in sorted(points.items()):
        if len(xy) < 2:
            continue
        mean_x = sum(x for x, _ in xy) / len(xy)
        mean_y = sum(y for _, y in xy) / len(xy)
        slope = sum((x - mean_x) * (y - mean_y) for x, y in xy) / sum((x - mean_x) ** 2 for x, _ in xy)
        worst = max(worst, slope)
        print(f"{family:45s} exponent {slope:.3f}{'  ABOVE ' + str(limit) if slope > limit else ''}")
    return 1 if worst > limit else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
