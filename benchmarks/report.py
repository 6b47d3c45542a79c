#!/usr/bin/env python3
"""Converts the results of corvanemarkup-comparison to a table of ratios and a plot.

usage: report.py RESULTS.json [PLOT.svg]

RESULTS.json comes from --benchmark_out. Each figure is the median of the repetitions.
"""

import json
import math
import sys

LIBRARY = "corvanemarkup"
REFERENCE = "PCRE2 JIT"
PEERS = [LIBRARY, REFERENCE, "u16string_view"]
BOUNDS = ["answer only", "limit"]
COLUMNS = ["names S", "fields S", "names L", "names P"]
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def read_medians(path):
    """The median times in nanoseconds, by task and peer."""
    with open(path, encoding="utf-8") as file:
        benchmarks = json.load(file)["benchmarks"]
    medians = {}
    for benchmark in benchmarks:
        if benchmark.get("aggregate_name") == "median":
            task, peer = benchmark["run_name"].split("/")
            medians[task, peer] = benchmark["cpu_time"] * NANOSECONDS[benchmark["time_unit"]]
    return medians


def print_table(rows):
    widths = [max(len(row[column]) for row in rows) for column in range(len(rows[0]))]
    rows.insert(1, ["-" * width for width in widths])
    for row in rows:
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |")
    print()


def print_ratios(medians):
    rows = [[f"relative to {REFERENCE}"] + COLUMNS]
    for peer in PEERS + BOUNDS:
        rows.append([peer] + [f"{medians[task, peer] / medians[task, REFERENCE]:.2f}" for task in COLUMNS])
    print_table(rows)


def print_times(medians):
    rows = [["task", "median time"]]
    for task in COLUMNS + ["one edit at the cursor"]:
        rows.append([task, f"{medians[task, LIBRARY] / 1e6:,.4f} ms"])
    print_table(rows)


def curves_by_size(medians):
    """For each peer, its times (in ns) by size of the text."""
    curves = {peer: [] for peer in PEERS}
    for (task, peer), time in medians.items():
        if task.startswith("names in "):
            curves[peer].append((int(task.split()[-1]), time))
    return {peer: sorted(points) for peer, points in curves.items()}


class Axis:
    """A logarithmic axis from `low` to `high`, drawn from `start` to `end`."""

    def __init__(self, low, high, start, end):
        self.low, self.high, self.start, self.end = low, high, start, end

    def place(self, value):
        share = math.log(value / self.low) / math.log(self.high / self.low)
        return self.start + share * (self.end - self.start)


def size_label(size):
    return f"{size >> 20} Mi" if size >= 1 << 20 else f"{size >> 10} Ki"


def time_label(nanoseconds):
    for unit, scale in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= scale:
            return f"{nanoseconds / scale:g} {unit}"
    return f"{nanoseconds:g} ns"


def write_plot(curves, path):
    """Time against size, both logarithmic, with each curve labelled at its end."""
    width, height, left, right, top, bottom = 800, 520, 90, 140, 50, 60
    colors = dict(zip(PEERS, ["#c0392b", "#2c5fa8", "#2e8b57"]))
    sizes = [size for size, _ in curves[LIBRARY]]
    times = [time for points in curves.values() for _, time in points]
    decades = range(math.floor(math.log10(min(times))), math.ceil(math.log10(max(times))) + 1)
    x = Axis(sizes[0], sizes[-1], left, width - right)
    y = Axis(10 ** decades[0], 10 ** decades[-1], height - bottom, top)

    svg = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
           f'width="{width}" height="{height}" font-family="sans-serif" font-size="13">',
           f'<rect width="{width}" height="{height}" fill="white"/>']

    def text(place_x, place_y, content, anchor="middle", color="#222222", extra=""):
        svg.append(f'<text x="{place_x:.1f}" y="{place_y:.1f}" text-anchor="{anchor}" fill="{color}"'
                   f'{extra}>{content}</text>')

    def grid_line(x1, y1, x2, y2):
        svg.append(f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="#dddddd"/>')

    text(left, 28, "Sheet names of one tooltip: time against size", "start", extra=' font-size="16"')
    for size in sizes:
        grid_line(x.place(size), top, x.place(size), height - bottom)
        text(x.place(size), height - bottom + 20, size_label(size))
    for decade in decades:
        grid_line(left, y.place(10 ** decade), width - right, y.place(10 ** decade))
        text(left - 8, y.place(10 ** decade) + 4, time_label(10 ** decade), "end")
    text((left + width - right) / 2, height - 14, "size of the tooltip in UTF-16 code units")
    text(20, (top + height - bottom) / 2, "median time of one call",
         extra=f' transform="rotate(-90 20 {(top + height - bottom) / 2})"')

    # From the bottom up, each label at the end of its curve or just above the previous one.
    lowest_free = height
    for peer, points in sorted(curves.items(), key=lambda curve: curve[1][-1][1]):
        line = " ".join(f"{x.place(size):.1f},{y.place(time):.1f}" for size, time in points)
        stroke_width = 3 if peer == LIBRARY else 1.8
        svg.append(f'<polyline points="{line}" fill="none" stroke="{colors[peer]}" '
                   f'stroke-width="{stroke_width}"/>')
        for size, time in points:
            svg.append(f'<circle cx="{x.place(size):.1f}" cy="{y.place(time):.1f}" r="3" '
                       f'fill="{colors[peer]}"/>')
        label_y = min(y.place(points[-1][1]) + 4, lowest_free - 16)
        lowest_free = label_y
        text(width - right + 10, label_y, peer, "start", colors[peer])

    svg.append("</svg>")
    with open(path, "w", encoding="utf-8") as file:
        file.write("\n".join(svg) + "\n")


def main(arguments):
    if len(arguments) not in (1, 2):
        sys.exit(__doc__)
    medians = read_medians(arguments[0])
    print_ratios(medians)
    print_times(medians)
    if len(arguments) == 2:
        write_plot(curves_by_size(medians), arguments[1])


if __name__ == "__main__":
    main(sys.argv[1:])
