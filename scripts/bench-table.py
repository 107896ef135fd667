#!/usr/bin/env python3
"""Prints the README's speed table from one run of the benchmarks, so no figure is copied by hand.

    bench-table.py ROWS.json RESULTS_DIR

RESULTS_DIR holds one Google Benchmark JSON file per program (bench_NAME.json, written with
--benchmark_out=FILE --benchmark_out_format=json) and optionally measures.tsv: lines of
"name<TAB>value" from measurements made outside Google Benchmark (the editor's start-up).

ROWS.json is the list of table rows; each row is
    {"label": "what was measured", "figures": [FIGURE, ...], "separator": " / ", "note": "..."}
and each FIGURE one of
    {"benchmark": NAME, "unit": "ms"}           CPU time per iteration in ns, us (or µs), ms or s;
                                                with "clock": "real" the wall (or manual) time,
                                                with "per": N that time divided by N
    {"benchmark": NAME, "unit": "MB/s"}         bytes per second (SetBytesProcessed) in MB/s or MiB/s
    {"benchmark": NAME, "counter": C}           a user counter, e.g. "strata"
    {"ratio": [A, B]}                           CPU time of A divided by CPU time of B
    {"growth": [A, B], "n": [NA, NB]}           log(time B / time A) / log(NB / NA): 1 is linear
    {"slope": [A, B], "n": [NA, NB], "unit": U} (time B - time A) / (NB - NA): the cost of one more
    {"exponent": FAMILY}                        least-squares growth exponent over every size FAMILY/N
                                                that ran, each size's fastest repetition: 1 is linear
    {"measure": NAME, "unit": "ms"}             a line of measures.tsv
A measure's unit is printed as it is. A figure may also have "prefix" (printed before it) and "digits" (decimals; by default 3
significant digits). NAME is a benchmark's full name ("BM_LoadAndWriteDefinition/1000"), or
"PROGRAM:NAME" when two programs use the same name. Figures are joined by the row's separator, then
the note is appended.

Exits 1 (after printing the table) when a figure names a benchmark or measure that did not run or
failed: the table then says "not measured" or "failed" there.
"""
import argparse
import csv
import glob
import json
import math
import os
import statistics
import sys

from complexity_exponent import exponent, fastest_times

TIME_UNITS = {"ns": 1e-9, "us": 1e-6, "µs": 1e-6, "ms": 1e-3, "s": 1.0}
RATE_UNITS = {"MB/s": 1e6, "MiB/s": 1024.0 * 1024.0, "GB/s": 1e9}


class Missing(Exception):
    """A figure that cannot be given; its text stands in the table."""


class Results:
    def __init__(self, results_dir):
        self.runs = {}  # "program:name" -> list of runs
        self.by_name = {}  # "name" -> set of programs
        for path in sorted(glob.glob(os.path.join(results_dir, "*.json"))):
            program = os.path.splitext(os.path.basename(path))[0]
            if program.startswith("bench_"):
                program = program[len("bench_"):]
            with open(path, encoding="utf-8") as results:
                try:
                    benchmarks = json.load(results).get("benchmarks", [])
                except json.JSONDecodeError as error:
                    print(f"bench-table: {path} is not JSON ({error})", file=sys.stderr)
                    continue
            for run in benchmarks:
                name = run.get("run_name", run.get("name"))
                self.runs.setdefault(f"{program}:{name}", []).append(run)
                self.by_name.setdefault(name, set()).add(program)
        self.measures = {}
        measures = os.path.join(results_dir, "measures.tsv")
        if os.path.exists(measures):
            with open(measures, encoding="utf-8", newline="") as lines:
                for row in csv.reader(lines, delimiter="\t"):
                    if len(row) >= 2:
                        self.measures[row[0].strip()] = row[1].strip()

    def run(self, name):
        """The run standing for a benchmark: the median of repetitions, else its one run."""
        key = name
        if ":" not in name:
            programs = self.by_name.get(name, set())
            if len(programs) > 1:
                raise SystemExit(f"bench-table: '{name}' is in {sorted(programs)}; write PROGRAM:{name}")
            key = f"{next(iter(programs))}:{name}" if programs else name
        runs = self.runs.get(key, [])
        if not runs:
            raise Missing("not measured")
        if any(run.get("error_occurred") for run in runs):
            raise Missing("failed")
        medians = [run for run in runs if run.get("aggregate_name") == "median"]
        if medians:
            return medians[0]
        iterations = [run for run in runs if run.get("run_type", "iteration") == "iteration"]
        if not iterations:
            raise Missing("not measured")
        if len(iterations) == 1:
            return iterations[0]
        middle = statistics.median_low(seconds(run) for run in iterations)
        return next(run for run in iterations if seconds(run) == middle)

    def seconds(self, name, clock="cpu"):
        return seconds(self.run(name), clock)

    def exponent(self, family):
        """The fitted growth exponent of FAMILY/N over the sizes N that ran ("PROGRAM:FAMILY" too)."""
        program, _, family = family.rpartition(":")
        runs = [run for key, found in self.runs.items()
                if key.partition(":")[0] == program or not program for run in found]
        if any(run.get("error_occurred") for run in runs
               if run.get("run_name", run["name"]).split("/")[0] == family):
            raise Missing("failed")
        slope = exponent(fastest_times(runs).get(family, {}))
        if slope is None:
            raise Missing("not measured")
        return slope

    def measure(self, name):
        value = self.measures.get(name)
        if value is None or value in ("", "-"):
            raise Missing("not measured")
        try:
            return float(value)
        except ValueError:
            raise Missing("not measured") from None


def seconds(run, clock="cpu"):
    """CPU (or real) time per iteration, in seconds."""
    return run[f"{clock}_time"] * TIME_UNITS[run.get("time_unit", "ns")]


def number(value, digits=None):
    """Three significant figures unless told, with thousands separated."""
    if digits is None:
        magnitude = math.floor(math.log10(abs(value))) if value else 0
        digits = max(0, 2 - magnitude)
    return f"{value:,.{digits}f}"


def figure(wanted, results):
    digits = wanted.get("digits")
    prefix = wanted.get("prefix", "")
    unit = wanted.get("unit", "")
    if "ratio" in wanted:
        top, bottom = (results.seconds(name) for name in wanted["ratio"])
        text = number(top / bottom, 2 if digits is None else digits)
    elif "growth" in wanted:
        small, large = (results.seconds(name) for name in wanted["growth"])
        n_small, n_large = wanted["n"]
        text = number(math.log(large / small) / math.log(n_large / n_small), 2 if digits is None else digits)
    elif "exponent" in wanted:
        text = number(results.exponent(wanted["exponent"]), 2 if digits is None else digits)
    elif "slope" in wanted:
        small, large = (results.seconds(name) for name in wanted["slope"])
        n_small, n_large = wanted["n"]
        if unit not in TIME_UNITS:
            raise SystemExit(f"bench-table: a slope needs a time unit: {wanted}")
        text = number((large - small) / (n_large - n_small) / TIME_UNITS[unit], digits)
    elif "measure" in wanted:  # before the units: a measure's unit is only printed
        text = number(results.measure(wanted["measure"]), digits)
    elif "counter" in wanted:
        run = results.run(wanted["benchmark"])
        if wanted["counter"] not in run:
            raise Missing("not measured")
        text = number(float(run[wanted["counter"]]), digits)
    elif unit in RATE_UNITS:
        run = results.run(wanted["benchmark"])
        if "bytes_per_second" not in run:
            raise Missing("not measured")
        text = number(run["bytes_per_second"] / RATE_UNITS[unit], digits)
    elif unit in TIME_UNITS:
        time = results.seconds(wanted["benchmark"], wanted.get("clock", "cpu")) / wanted.get("per", 1)
        text = number(time / TIME_UNITS[unit], digits)
    else:
        raise SystemExit(f"bench-table: a figure needs a known unit, ratio, growth, measure or counter: {wanted}")
    return prefix + text + (f" {unit}" if unit else "")


def table(rows, results):
    lines = ["| what | figure |", "|---|---|"]
    complete = True
    for row in rows:
        texts = []
        for wanted in row["figures"]:
            try:
                texts.append(figure(wanted, results))
            except Missing as missing:
                texts.append(wanted.get("prefix", "") + str(missing))
                complete = False
        cell = row.get("separator", " / ").join(texts)
        if row.get("note"):
            cell += " " + row["note"]
        lines.append(f"| {row['label']} | {cell} |")
    return "\n".join(lines), complete


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("rows", help="the rows, a JSON list")
    parser.add_argument("results_dir", help="bench_*.json and measures.tsv of one run")
    arguments = parser.parse_args()
    with open(arguments.rows, encoding="utf-8") as rows:
        rows = json.load(rows)
    text, complete = table(rows, Results(arguments.results_dir))
    print(text)
    return 0 if complete else 1


if __name__ == "__main__":
    sys.exit(main())
