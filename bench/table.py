#!/usr/bin/env python3
"""Runs the benchmarks and prints each job beside its peer.

usage: table.py PROGRAM_DIR [FAMILY...]

targets.json tells the pairs: "ours" and "peer" are benchmarks of one program, which are run interleaved; the figure is
the ratio of their best times (or of "measure"), since whatever else the machine does only adds to a time. "must" is the
limit beyond which a figure is a defect, "goal" says when it is good; with "atLeast" more is better. "beside" is a second
peer without limits: its figure is only shown.
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
REPETITIONS = 9


def run(program, names):
    """The best measures of the named benchmarks."""
    pattern = "^(" + "|".join(re.escape(name) for name in names) + ")$"
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        subprocess.run(
            [program, f"--benchmark_filter={pattern}", f"--benchmark_repetitions={REPETITIONS}",
             "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.2",
             f"--benchmark_out={out.name}", "--benchmark_out_format=json"],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        rows = json.load(open(out.name))["benchmarks"]
    best = {}
    for name in names:
        runs = [row for row in rows if row["run_name"] == name and row["run_type"] == "iteration"]
        if not runs:
            sys.exit(f"table.py: {program} has no benchmark {name}")
        best[name] = {
            measure: (max if measure.endswith("per_second") else min)(row[measure] for row in runs)
            for measure in ("real_time", "cpu_time", "bytes_per_second") if measure in runs[0]}
    return best


def main():
    programs = pathlib.Path(sys.argv[1])
    families = sys.argv[2:]
    targets = json.load(open(HERE / "targets.json"))
    if families:
        targets = [t for t in targets if t["program"].removesuffix("_bench") in families]
    print(f"{'work':58} {'ratio':>7} {'must':>6} {'goal':>6} {'beside':>7}")
    missed = 0
    for program in dict.fromkeys(t["program"] for t in targets):
        rows = [t for t in targets if t["program"] == program]
        names = list(dict.fromkeys(t[key] for t in rows for key in ("ours", "peer", "beside") if key in t))
        best = run(str(programs / program), names)
        for row in rows:
            measure = row.get("measure", "cpu_time")
            ratio = best[row["ours"]][measure] / best[row["peer"]][measure]
            beside = f"{best[row['ours']][measure] / best[row['beside']][measure]:7.3f}" if "beside" in row else " " * 7
            better = (lambda limit: ratio >= limit) if row.get("atLeast") else (lambda limit: ratio <= limit)
            verdict = "goal met" if better(row["goal"]) else "ok" if better(row["must"]) else "MISSED"
            missed += verdict == "MISSED"
            print(f"{row['work']:58} {ratio:7.3f} {row['must']:6.2f} {row['goal']:6.2f} {beside}  {verdict}")
    # Programs that print figures of their own.
    for suffix in ("_allocations", "_shapes"):
        for program in sorted(programs.glob("*" + suffix)):
            if not families or program.name.removesuffix(suffix) in families or suffix[1:] in families:
                own = subprocess.run([program], capture_output=True, text=True)
                missed += own.returncode != 0
                print(own.stdout, end="")
    sys.exit(1 if missed else 0)


main()
