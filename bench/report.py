#!/usr/bin/env python3
"""Turns what qx_bench has measured into tables and a chart.

report.py RESULTS [--csv FILE] [--chart FILE] [--update TREE]

RESULTS is a directory of files written by --benchmark_out, one for each family. The table goes to standard
output. --update puts it into docs/speed.md, a summary of it into README.md, both between their markers, and
the chart into docs/images.
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
    "cells": "Single cells", "build": "Build, copy, destroy", "read": "Read single values", "sort": "Sort",
    "filter": "Filter", "distinct": "Drop repeated rows", "join": "Append, merge, overlay, fill",
    "wide": "Thousands of indices", "transpose": "Transpose", "compare": "Compare, match",
    "arithmetic": "Add, sum, template", "display": "Print", "nested": "Nested tables", "paths": "Paths",
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

    @property
    def growth(self):
        """The exponent g with which QX's time grows, as n to the power of g; None with a single size."""
        if len(self.times) < 2:
            return None
        small, large = self.sizes[0], self.sizes[-1]
        return math.log(self.times[large]["qx"] / self.times[small]["qx"]) / math.log(large / small)


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


def figure(value):
    """Three significant digits, without an exponent."""
    if value >= 100:
        return f"{value:.0f}"
    return f"{value:.{max(0, 2 - math.floor(math.log10(max(value, 1e-4))))}f}"


def cells(row, size):
    """The fields of one line of the table."""
    times = row.times[size]
    yield row.name.replace("/", ": ")
    yield f"{size:,}"
    yield figure(times["qx"] * 1e3)
    for peer in PEERS:
        yield f"{figure(times[peer] * 1e3)} ({figure(row.ratio(peer, size))})" if peer in times else ""
    yield f"{row.growth:.2f}" if size == row.sizes[-1] and row.growth is not None else ""


def full_table(rows):
    header = ["workload", "n", "QX", *PEERS.values(), "growth"]
    lines = [list(cells(row, size)) for row in rows for size in row.sizes]
    widths = [max(len(line[i]) for line in [header, *lines]) for i in range(len(header))]
    aligned = ["-" * widths[0]] + ["-" * (width - 1) + ":" for width in widths[1:]]

    def show(line):
        padded = [line[0].ljust(widths[0])] + [text.rjust(width) for text, width in zip(line[1:], widths[1:])]
        return "| " + " | ".join(padded) + " |"

    return "\n".join(map(show, [header, aligned, *lines])) + "\n"


def spread(values):
    """The middle of some ratios and their range."""
    values = [value for value in values if value is not None]
    if not values:
        return ""
    middle = figure(statistics.median(values))
    return middle if len(values) == 1 else f"{middle} ({figure(min(values))} to {figure(max(values))})"


def summary_table(rows):
    lines = ["| | " + " | ".join(PEERS.values()) + " | growth |", "|---|" + "--:|" * (len(PEERS) + 1)]
    for family, title in FAMILIES.items():
        own = [row for row in rows if row.family == family]
        if own:
            fields = [spread([row.ratio(peer) for row in own]) for peer in PEERS]
            growth = max((row.growth for row in own if row.growth is not None), default=None)
            lines.append(f"| {title} | " + " | ".join(fields) + f" | {growth:.2f} |")
    return "\n".join(lines) + "\n"


def losses(rows):
    """A sentence on each peer that is faster than QX somewhere."""
    text = ""
    for peer in RIVALS:
        lost = sorted((row.ratio(peer), row.name) for row in rows if (row.ratio(peer) or 1) < 1)
        against = sum(row.ratio(peer) is not None for row in rows)
        if lost:
            listed = "; ".join(f"{name.replace('/', ': ')} ({figure(ratio)})" for ratio, name in lost)
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
    with open(path, "w", newline="") as file:
        writer = csv.writer(file)
        writer.writerow(["workload", "n", "qx_s", *(f"{peer}_s" for peer in PEERS), "growth"])
        for row in rows:
            for size in row.sizes:
                times = row.times[size]
                writer.writerow([row.name, size, times["qx"], *(times.get(peer, "") for peer in PEERS),
                                 "" if row.growth is None else f"{row.growth:.3f}"])


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
    figure_, axes = plt.subplots(figsize=(8, 0.11 * sum(len(peers) + 0.7 for _, peers in bars) + 0.9))
    y, ticks, named = 0.0, [], set()
    for row, peers in bars:
        ticks.append((y + (len(peers) - 1) / 2, row.name.replace("/", ": ")))
        for peer in peers:
            label = None if peer in named else PEERS[peer]
            named.add(peer)
            axes.barh(y, row.ratio(peer) - 1, left=1, height=0.9, color=colours[peer], label=label)
            y += 1
        y += 0.7
    axes.set_xscale("log")
    axes.set_xticks([0.01, 0.1, 1 / 3, 1, 3, 10, 100], ["1/100", "1/10", "1/3", "same", "3 x", "10 x", "100 x"])
    axes.set_yticks([at for at, _ in ticks], [name for _, name in ticks])
    axes.set_ylim(y, -1)
    axes.axvline(1, color="#1d2733", linewidth=0.8)
    axes.grid(axis="x", color="#dde4ea", linewidth=0.6)
    axes.set_axisbelow(True)
    axes.set_title("Time of each peer relative to QX: to the right QX is ahead", loc="left", fontsize=10)
    axes.legend(loc="upper center", bbox_to_anchor=(0.4, -0.02), ncol=4, frameon=False)
    for side in ("top", "right", "left"):
        axes.spines[side].set_visible(False)
    axes.tick_params(axis="y", length=0)
    figure_.savefig(path, bbox_inches="tight", metadata={"Date": None})


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
    print(f"Milliseconds; behind each peer's, in brackets, how many times as long as QX it takes.\n\n"
          f"{full_table(rows)}\n{losses(rows)}\n{machine(context)}")
    if options.csv:
        write_csv(rows, options.csv)
    if options.chart:
        draw(rows, options.chart)
    if options.update:
        missing = [family for family in FAMILIES if family not in {row.family for row in rows}]
        if missing:
            sys.exit(f"not measured: {', '.join(missing)}")
        lost = losses(rows)
        note = f"\nMeasured on {machine(context)}\n"
        replace_between(options.update / "README.md", summary_table(rows) + (f"\n{lost}" if lost else "") + note)
        replace_between(options.update / "docs/speed.md", full_table(rows) + note)
        draw(rows, options.update / "docs/images/speed.svg")


if __name__ == "__main__":
    main()
