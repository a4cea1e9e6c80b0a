#!/usr/bin/env python3
"""performance.py page RUN.json PROCESSES.txt: puts a run of the benchmarks into docs/performance.md, docs/performance.json
and docs/images/performance.svg. What is written by hand in the page stays.

performance.py compare BENCH EARLIER.json [--filter=TEXT ...]: runs the benchmarks and names the rows whose ratio to the peer
fell by more than 5 per cent. Such a row is measured twice more, and its best ratio counts. Status 1 if one is left."""
import datetime
import json
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PAGE = ROOT / "docs" / "performance.md"
RECORD = ROOT / "docs" / "performance.json"
PLOT = ROOT / "docs" / "images" / "performance.svg"
BEGIN, END = "<!-- figures: made by scripts/bench.sh -->", "<!-- end of figures -->"
SIZES = ("64 bytes", "1 KiB", "16 KiB", "1 MiB")
GROUPS = {"frame": "The call itself", "hash": "Digests and MACs", "cipher": "Ciphers", "aead": "AEAD and SHA-3",
          "rng": "Random bytes", "encode": "Encodings", "asn1": "DER", "rsa": "RSA", "key": "Keys and signatures",
          "keygen": "Key generation", "pbe": "Key derivation", "x509": "Certificates and CRLs",
          "report": "Queries and reports", "path": "Paths", "cms": "Messages", "p12": "PKCS #12",
          "threads": "Two threads against one"}
ALLOWED_LOSS = 0.05


def in_order(rows):
    """The rows by group, and within a group as they were measured."""
    order = list(GROUPS)
    return sorted(rows, key=lambda row: order.index(row["group"]) if row["group"] in order else len(order))


def split(name):
    """The row's name without its size, and the size or None."""
    for size in SIZES:
        if name.endswith(", " + size):
            return name[:-len(size) - 2], size
    return name, None


def figure(value):
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def tables(rows):
    lines = []
    group = None
    for row in in_order(rows):
        if row["group"] != group:
            group = row["group"]
            lines += ["", f"### {GROUPS.get(group, group)}", "", "| row | ours | theirs | unit | ratio | spread |",
                      "|---|--:|--:|---|--:|--:|"]
        lines.append(f"| {row['name']} | {figure(row['ours'])} | {figure(row['theirs'])} | {row['unit']} | "
                     f"{row['ratio']:.2f} | {100 * row['spread']:.0f} % |")
    return lines


def draw(rows):
    import matplotlib
    matplotlib.use("svg")
    matplotlib.rcParams.update({"svg.hashsalt": "zulcore", "font.size": 7, "font.family": "sans-serif",
                                "svg.fonttype": "none"})
    from matplotlib import pyplot

    lines = []  # (group, label, {size: ratio})
    for row in in_order(rows):
        label, size = split(row["name"])
        if size and lines and any(line[:2] == (row["group"], label) for line in lines):
            next(line for line in lines if line[:2] == (row["group"], label))[2][size] = row["ratio"]
        else:
            lines.append((row["group"], label, {size: row["ratio"]}))
    figure_, axes = pyplot.subplots(figsize=(8, 0.6 + 0.135 * len(lines)))
    colours = {None: "#33475b", "64 bytes": "#9ecae1", "1 KiB": "#4292c6", "16 KiB": "#2171b5", "1 MiB": "#08306b"}
    for place, (_, _, ratios) in enumerate(lines):
        axes.plot([min(ratios.values()), max(ratios.values())], [place, place], color="#c0c8d0", linewidth=1, zorder=1)
        for size, ratio in ratios.items():
            axes.scatter([ratio], [place], s=14, color=colours[size], zorder=2)
    for place in range(1, len(lines)):
        if lines[place][0] != lines[place - 1][0]:
            axes.axhline(place - 0.5, color="#e0e4e8", linewidth=0.6)
    axes.axvline(1, color="#c0392b", linewidth=0.8)
    axes.set_xscale("log")
    ticks = (0.25, 0.5, 1, 2, 5, 10, 20, 50)
    axes.set_xticks(ticks, [f"{tick:g}" for tick in ticks])
    axes.set_xticks([], minor=True)
    axes.set_yticks(range(len(lines)), [label for _, label, _ in lines])
    axes.set_ylim(len(lines) - 0.4, -0.6)
    axes.tick_params(length=0)
    axes.tick_params(axis="x", labeltop=True)
    axes.grid(axis="x", color="#eef1f4")
    axes.set_axisbelow(True)
    for side in axes.spines.values():
        side.set_visible(False)
    axes.set_xlabel("times as fast as the peer, logarithmic")
    for size in SIZES:
        axes.scatter([], [], s=14, color=colours[size], label=size)
    axes.scatter([], [], s=14, color=colours[None], label="one size")
    axes.legend(loc="lower right", frameon=False)
    figure_.savefig(PLOT, bbox_inches="tight", metadata={"Date": None})
    # The library ends lines with blanks.
    PLOT.write_text("\n".join(line.rstrip() for line in PLOT.read_text().splitlines()) + "\n")


def page(run_file, processes_file):
    run = json.loads(Path(run_file).read_text())
    rows = run["rows"]
    behind = [row for row in rows if row["ratio"] < 0.995 and row["unit"] != "Mcalls/s"]
    lines = [BEGIN, "", f"Measured on {datetime.date.today()}, {run['slices']} pairs of slices of "
             f"{1000 * run['seconds']:.0f} ms for each row.", ""]
    lines += ["| | |", "|---|---|"] + [f"| {subject} | {text} |" for subject, text in run["machine"]]
    against = [row for row in rows if row["unit"] != "Mcalls/s"]
    lines += ["", f"{len(against)} rows have a peer, and {len(behind)} of them are below 1: "
              + ("; ".join(f"{row['name']} {row['ratio']:.2f}" for row in behind) or "none") + ".", "",
              "![ratio of every row](images/performance.svg)"]
    lines += tables(rows)
    lines += ["", "### Whole processes", "", "```text", Path(processes_file).read_text().strip(), "```", "", END]
    text = PAGE.read_text()
    before, rest = text.split(BEGIN)
    PAGE.write_text(before + "\n".join(lines) + rest.split(END)[1])
    RECORD.write_text(json.dumps(run, separators=(",", ":")).replace('{"group"', '\n{"group"') + "\n")
    draw(rows)


def measured(bench, filters):
    with tempfile.NamedTemporaryFile(suffix=".json") as file:
        subprocess.run([bench, f"--json={file.name}", *(f"--filter={text}" for text in filters)], check=True)
        return {row["name"]: row["ratio"] for row in json.loads(Path(file.name).read_text())["rows"]}


def compare(bench, earlier_file, filters):
    earlier = {row["name"]: row["ratio"] for row in json.loads(Path(earlier_file).read_text())["rows"]}
    now = measured(bench, filters)

    def lost():
        return [name for name in now if name in earlier and now[name] < earlier[name] * (1 - ALLOWED_LOSS)]

    for _ in range(2):
        if not lost():
            break
        print(f"\nonce more: {len(lost())} rows")
        for name, ratio in measured(bench, lost()).items():
            now[name] = max(now.get(name, 0), ratio)
    print()
    for name in lost():
        print(f"lost {100 * (1 - now[name] / earlier[name]):4.0f} %  {name}: {earlier[name]:.2f} to {now[name]:.2f}")
    missing = [] if filters else [name for name in earlier if name not in now]
    for name in missing:
        print(f"no longer measured: {name}")
    print(f"{len(lost())} of {len(now)} rows lost more than {100 * ALLOWED_LOSS:.0f} %")
    return 1 if lost() else 0


if __name__ == "__main__":
    if len(sys.argv) == 4 and sys.argv[1] == "page":
        page(*sys.argv[2:])
    elif len(sys.argv) >= 4 and sys.argv[1] == "compare":
        sys.exit(compare(sys.argv[2], sys.argv[3], [word.removeprefix("--filter=") for word in sys.argv[4:]]))
    else:
        sys.exit(__doc__)
