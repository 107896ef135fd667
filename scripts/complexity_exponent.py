#!/usr/bin/env python3
"""Fitted growth exponent of each size-swept benchmark in Google Benchmark JSON reports.

Usage: complexity_exponent.py [--limit L] [--only REGEX] REPORT.json ...
(a report is written by bench_x --benchmark_out=REPORT.json --benchmark_out_format=json)

Prints, per benchmark family ("BM_Name/SIZE"), the least-squares slope of log(CPU time) against
log(SIZE): 1.0 is linear, 2.0 quadratic. With repetitions, each size counts with its fastest run: the
one least disturbed by the rest of the machine, which is what the code costs.
Exits 1 when any slope is above the limit (default 1.05); with --only, just the families whose name
matches REGEX (from its start) are printed and judged."""
import json
import math
import re
import sys
from collections import defaultdict


def fastest_times(runs):
    """{family: {size: fastest CPU time}} of the runs named FAMILY/SIZE that did not fail."""
    families = defaultdict(dict)
    for run in runs:
        if run.get("run_type", "iteration") != "iteration" or run.get("error_occurred"):
            continue
        # Settings such as "repeats:5" or "min_time:0.2" follow the arguments in a run's name.
        family, *arguments = [part for part in run.get("run_name", run["name"]).split("/") if ":" not in part]
        if len(arguments) != 1 or not arguments[0].isdigit():
            continue
        size = arguments[0]
        sizes = families[family]
        sizes[int(size)] = min(sizes.get(int(size), math.inf), run["cpu_time"])
    return families


def exponent(times):
    """Least-squares slope of log(time) against log(size); None with fewer than two sizes."""
    points = [(math.log(size), math.log(time)) for size, time in times.items() if time > 0]
    if len(points) < 2:
        return None
    mean_x = sum(x for x, _ in points) / len(points)
    mean_y = sum(y for _, y in points) / len(points)
    spread = sum((x - mean_x) ** 2 for x, _ in points)
    return sum((x - mean_x) * (y - mean_y) for x, y in points) / spread


def main(argv):
    limit = 1.05
    only = re.compile("")
    paths = []
    words = iter(argv[1:])
    for word in words:
        if word == "--limit":
            limit = float(next(words))
        elif word == "--only":
            only = re.compile(next(words))
        else:
            paths.append(word)
    runs = []
    for path in paths:
        with open(path, encoding="utf-8") as report:
            runs.extend(json.load(report).get("benchmarks", []))
    worst = 0.0
    for family, times in sorted(fastest_times(runs).items()):
        slope = exponent(times)
        if slope is None or not only.match(family):
            continue
        worst = max(worst, slope)
        sizes = f"{min(times):,} to {max(times):,}"
        print(f"{family:40s} {sizes:>18s}  exponent {slope:.3f}{'  ABOVE ' + str(limit) if slope > limit else ''}")
    return 1 if worst > limit else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
