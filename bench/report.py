#!/usr/bin/env python3
"""Turns what qx_bench has measured into tables and a chart.

report.py RESULTS [--csv FILE] [--chart FILE] [--update TREE]

RESULTS is a directory of files written by --benchmark_out, one for each family. The table goes to
standard output. --update puts it into docs/speed.md, a summary of it into README.md, both between their
markers, and the chart into docs/images.
"""

import argparse
import csv
import json
import math
import pathlib
import re
import statistics
import sys

PEERS = {"sqlite": "SQLite", "json": "nlohmann-json", "pugixml": "pugixml", "plain": "plain C++"}
RIVALS = ("sqlite", "json", "pugixml")  # plain C++ is the practical limit, not a rival
FAMILIES = {
    "cells": "Single cells", "build": "Build, copy, destroy", "read": "Read single values",
    "sort": "Sort", "filter": "Filter", "distinct": "Drop repeated rows",
    "join": "Append, merge, overlay, fill", "wide": "Thousands of indices", "transpose": "Transpose",
    "compare": "Compare, match", "arithmetic": "Add, sum, template", "display": "Print", "nested": "Nested tables", "paths": "Paths",
    "attributes": "Attributes",
}


class Row:
    """One workload at its two sizes: the seconds of each side."""

    def __init__(self, name):
        self.name = name
        self.family = name.split("/")[0]
        self.times = {}

    @property
    def sizes(self):
        return sorted(self.times)

    def ratio(self, peer, size=None):
        """How many times as long as QX the peer takes, at the larger size unless told otherwise."""
        times = self.times[size or self.sizes[-1]]
        return times[peer] / times["qx"] if peer in times else None

    def growth(self, side="qx"):
        """The g of a side's time growing as n to the power of g; None without a second size."""
        small, large = self.sizes[0], self.sizes[-1]
        if small == large or side not in self.times[large]:
            return None
        return math.log(self.times[large][side] / self.times[small][side]) / math.log(large / small)


def read(directory):
    """All rows, in the order of the families, and the context of the measurement."""
    rows, context = {}, {}
    for family in FAMILIES:
        path = directory / f"{family}.json"
        if not path.exists():
            continue
        measured = json.loads(path.read_text())
        context = measured["context"]
        for run in sorted(measured["benchmarks"], key=lambda run: run["family_index"]):
            if run.get("error_occurred"):
                sys.exit(f"{run['name']}: {run['error_message']}")
            if run.get("aggregate_name") != "median":
                continue
            family_name, workload, side, size, _ = run["run_name"].split("/")
            row = rows.setdefault((family_name, workload), Row(f"{family_name}/{workload}"))
            row.times.setdefault(int(size), {})[side] = run["real_time"] / 1e3
    return list(rows.values()), context


def figure(value, digits=3):
    """So many significant digits, without an exponent."""
    places = digits - 1 - math.floor(math.log10(max(value, 1e-4)))
    return f"{value:.{max(0, places)}f}"


def times_as_long(ratio):
    return figure(ratio, digits=2)


def cells(row, size):
    """The fields of one line of the table."""
    times = row.times[size]
    yield row.name.replace("/", ": ")
    yield f"{size:,}"
    yield figure(times["qx"] * 1e3)
    for peer in PEERS:
        yield f"{figure(times[peer] * 1e3)} ({times_as_long(row.ratio(peer, size))})" if peer in times else ""
    last = size == row.sizes[-1]
    yield exponents([row.growth()]) if last else ""
    yield exponents([row.growth(peer) for peer in PEERS]) if last else ""


def exponents(values):
    """The least and the largest of some exponents."""
    shown = sorted({f"{value:.2f}" for value in values if value is not None}, key=float)
    return shown[0] if len(shown) == 1 else f"{shown[0]} to {shown[-1]}" if shown else ""


def full_table(rows):
    header = ["workload", "n", "QX", *PEERS.values(), "growth", "their growth"]
    lines = [list(cells(row, size)) for row in rows for size in row.sizes]
    widths = [max(len(line[i]) for line in [header, *lines]) for i in range(len(header))]
    aligned = ["-" * widths[0]] + ["-" * (width - 1) + ":" for width in widths[1:]]

    def show(line):
        name, *numbers = line
        padded = [text.rjust(width) for text, width in zip(numbers, widths[1:])]
        return "| " + " | ".join([name.ljust(widths[0]), *padded]) + " |"

    return "\n".join(map(show, [header, aligned, *lines])) + "\n"


def spread(values):
    """The middle of some ratios and their range."""
    values = [value for value in values if value is not None]
    if not values:
        return ""
    middle, least, most = map(times_as_long, (statistics.median(values), min(values), max(values)))
    return middle if len(values) == 1 else f"{middle} ({least} to {most})"


def summary_table(rows):
    header = ["", *PEERS.values(), "growth", "their growth"]
    lines = [f"| {' | '.join(header)} |", "|---|" + "--:|" * (len(header) - 1)]
    for family, title in FAMILIES.items():
        own = [row for row in rows if row.family == family]
        if own:
            fields = [spread([row.ratio(peer) for row in own]) for peer in PEERS]
            fields.append(exponents([row.growth() for row in own]))
            fields.append(exponents([row.growth(peer) for row in own for peer in PEERS]))
            lines.append(f"| {title} | " + " | ".join(fields) + " |")
    return "\n".join(lines) + "\n"


def losses(rows):
    """A sentence on each peer that is faster than QX somewhere."""
    text = ""
    for peer in RIVALS:
        lost = sorted((row.ratio(peer), row.name) for row in rows if (row.ratio(peer) or 1) < 1)
        against = sum(row.ratio(peer) is not None for row in rows)
        if lost:
            listed = "; ".join(f"{name.replace('/', ': ')} ({times_as_long(ratio)})" for ratio, name in lost)
            text += f"- {PEERS[peer]} is ahead in {len(lost)} of {against}: {listed}.\n"
    return text


def machine(context):
    model = "unknown processor"
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            model = line.split(":")[1].strip()
            break
    return (f"{model}, {context['mhz_per_cpu'] / 1e3:.1f} GHz, {context['num_cpus']} cores; "
            f"g++ {context['compiler']}, preset release; SQLite {context['sqlite']}, "
            f"nlohmann-json {context['json']}, pugixml {context['pugixml']}.")


def write_csv(rows, path):
    sides = ["qx", *PEERS]
    with open(path, "w", newline="") as file:
        writer = csv.writer(file)
        writer.writerow(["workload", "n", *(f"{side}_seconds" for side in sides),
                         *(f"{side}_growth" for side in sides)])
        for row in rows:
            growth = [row.growth(side) for side in sides]
            for size in row.sizes:
                writer.writerow([row.name, size, *(row.times[size].get(side, "") for side in sides),
                                 *("" if value is None else f"{value:.3f}" for value in growth)])


def draw(rows, path):
    """The ratios at the larger size as bars on a logarithmic scale; right of 1 QX is ahead."""
    import matplotlib
    matplotlib.use("svg")
    import matplotlib.pyplot as plt
    plt.rcParams.update({"svg.hashsalt": "qx", "svg.fonttype": "none", "font.size": 9,
                         "font.family": "sans-serif"})
    colours = {"sqlite": "#4a6b85", "json": "#d98e32", "pugixml": "#7a9e4f", "plain": "#c9d3db"}
    shown = [row for row in rows if any(row.ratio(peer) for peer in PEERS)]
    bars = [(row, [peer for peer in PEERS if row.ratio(peer)]) for row in shown]
    height = 0.11 * sum(len(peers) + 0.7 for _, peers in bars) + 0.9
    drawing, axes = plt.subplots(figsize=(8, height))
    y, ticks = 0.0, []
    for row, peers in bars:
        ticks.append((y + (len(peers) - 1) / 2, row.name.replace("/", ": ")))
        for peer in peers:
            axes.barh(y, row.ratio(peer) - 1, left=1, height=0.9, color=colours[peer])
            y += 1
        y += 0.7
    axes.set_xscale("log")
    axes.set_xticks([0.01, 0.1, 1 / 3, 1, 3, 10, 100], ["1/100", "1/10", "1/3", "1", "3", "10", "100"])
    axes.set_yticks([at for at, _ in ticks], [name for _, name in ticks])
    axes.set_ylim(y, -1)
    axes.axvline(1, color="#1d2733", linewidth=0.8)
    axes.grid(axis="x", color="#dde4ea", linewidth=0.6)
    axes.set_axisbelow(True)
    axes.set_title("Time of each peer relative to QX: to the right QX is ahead", loc="left", fontsize=10)
    for peer, title in PEERS.items():
        axes.barh(0, 0, left=1, color=colours[peer], label=title)
    axes.legend(loc="upper center", bbox_to_anchor=(0.4, -0.02), ncol=4, frameon=False)
    for side in ("top", "right", "left"):
        axes.spines[side].set_visible(False)
    axes.tick_params(axis="y", length=0)
    drawing.savefig(path, bbox_inches="tight", metadata={"Date": None})


def replace_between(path, text):
    """Replaces what stands between the markers of a page."""
    page = path.read_text()
    begin, end = "<!-- speed: scripts/bench --update writes this -->\n", "<!-- /speed -->"
    pattern = re.escape(begin) + ".*?" + re.escape(end)
    if not re.search(pattern, page, re.S):
        sys.exit(f"{path}: no markers")
    path.write_text(re.sub(pattern, lambda _: f"{begin}\n{text}\n{end}", page, flags=re.S))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("results", type=pathlib.Path)
    parser.add_argument("--csv", type=pathlib.Path)
    parser.add_argument("--chart", type=pathlib.Path)
    parser.add_argument("--update", type=pathlib.Path)
    options = parser.parse_args()

    rows, context = read(options.results)
    if not rows:
        sys.exit("nothing was measured")
    print(f"Milliseconds; behind each peer's, in brackets, how many times as long as QX it takes.\n"
          f"Growth is the exponent of n between the two sizes, QX's and the peers'.\n\n"
          f"{full_table(rows)}\n{losses(rows)}\n{machine(context)}")
    if options.csv:
        write_csv(rows, options.csv)
    if options.chart:
        draw(rows, options.chart)
    if options.update:
        missing = [family for family in FAMILIES if family not in {row.family for row in rows}]
        if missing:
            sys.exit(f"not measured: {', '.join(missing)}")
        note = f"\nMeasured on {machine(context)}\n"
        replace_between(options.update / "README.md", f"{summary_table(rows)}\n{losses(rows)}{note}")
        replace_between(options.update / "docs/speed.md", full_table(rows) + note)
        draw(rows, options.update / "docs/images/speed.svg")


if __name__ == "__main__":
    main()
