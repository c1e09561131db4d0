#!/usr/bin/python3
"""Times tarvo-docs as a user runs it, against the floor of the same run.

For every generated document (see generate_documents.cpp) it runs, in each of RUNS rounds, the
floor and `check`, `check --kind` and `convert` once, takes the median CPU time (user plus
system) of the whole process and subtracts the program's start-up: the median time of
converting the smallest document of the same kind with the same inputs. It prints each time
over the floor that tarvo-bench-floor measures on the same text (parse plus validation from
memory; for convert, that plus the validated pretty write), and the peak memory of convert
above that of the smallest document over the size of the text written compactly.
"""

import argparse
import json
import os
import statistics
import subprocess
import sys
import tempfile

COMMANDS = ("check", "check --kind", "convert")


def run(argv):
    """Runs argv to the end; returns (CPU seconds, peak resident bytes, exit status, stderr)."""
    with tempfile.TemporaryFile() as err:
        process = subprocess.Popen(argv, stdout=subprocess.DEVNULL, stderr=err)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        err.seek(0)
        return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024, process.returncode, err.read().decode()


class Document:
    def __init__(self, line):
        fields = line.rstrip("\n").split("\t")
        self.name, self.kind, self.file, self.empty, self.schema = fields[:5]
        self.options = [word for word in fields[5:] if word]

    def argv(self, tool, command, file):
        words = [tool, command.split()[0], file] + self.options
        if command == "check --kind":
            words += ["--kind", self.kind]
        if command == "convert":
            # A regular file, as a user converts to; it lands in the page cache, not on disk.
            words += ["-o", os.path.join(os.path.dirname(file), "converted.json")]
        return words


def measure(bench_dir, tool, document, runs):
    """Runs the floor and every command once a round, so that a machine whose speed drifts
    during the benchmark moves the floor with the program; medians of the rounds."""
    # Three floor runs a round: the first parse of a process pays first touches of its memory.
    floor_argv = [os.path.join(bench_dir, "tarvo-bench-floor"), document.file, document.schema, "3"]
    work = [("start-up", document.empty, "convert")] + [(command, document.file, command) for command in COMMANDS]
    floors, converts, times, peaks = [], [], {name: [] for name, _, _ in work}, {name: [] for name, _, _ in work}
    for _ in range(runs):
        out = subprocess.run(floor_argv, check=True, capture_output=True, text=True).stdout.split()
        floors.append(float(out[0]))
        converts.append(float(out[1]))
        compact = int(out[2])
        for name, file, command in work:
            argv = document.argv(tool, command, file)
            seconds, peak, status, err = run(argv)
            if status != 0:
                sys.exit(f"whole_process: `{' '.join(argv)}` failed ({status}):\n{err}")
            times[name].append(seconds)
            peaks[name].append(peak)
    start_up = statistics.median(times["start-up"])
    result = {"floor ms": statistics.median(floors) * 1e3, "convert floor ms": statistics.median(converts) * 1e3,
              "compact bytes": compact, "bytes": os.path.getsize(document.file), "start-up ms": start_up * 1e3}
    for command in COMMANDS:
        result[command + " ms"] = max(statistics.median(times[command]) - start_up, 0.0) * 1e3
    result["convert peak MB"] = max(max(peaks["convert"]) - max(peaks["start-up"]), 0) / 1e6
    return result


def milliseconds(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def table(results):
    header = ["document", "MB", "floor ms", "check", "check --kind", "convert floor ms", "convert",
              "convert peak/text"]
    rows = []
    for name, r in results.items():
        rows.append([name, f"{r['bytes'] / 1e6:.1f}", milliseconds(r['floor ms']),
                     f"{r['check ms'] / r['floor ms']:.2f}x", f"{r['check --kind ms'] / r['floor ms']:.2f}x",
                     milliseconds(r['convert floor ms']), f"{r['convert ms'] / r['convert floor ms']:.2f}x",
                     f"{r['convert peak MB'] * 1e6 / r['compact bytes']:.2f}x"])
    lines = ["| " + " | ".join(header) + " |", "|" + "---|" * len(header)]
    lines += ["| " + " | ".join(row) + " |" for row in rows]
    return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", required=True, help="the build directory (holding bench/ and tools/)")
    parser.add_argument("--scale", type=float, default=1.0, help="document size, 1 for the published sizes")
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--only", action="append", help="time only this document (repeatable)")
    parser.add_argument("--json", help="also write the measurements to this file")
    args = parser.parse_args()
    bench_dir = os.path.join(args.build, "bench")
    tool = os.path.join(args.build, "tools", "tarvo-docs", "tarvo-docs")
    with tempfile.TemporaryDirectory(prefix="tarvo-whole-") as work:
        subprocess.run([os.path.join(bench_dir, "tarvo-bench-generate"), work, str(args.scale)], check=True,
                       stdout=subprocess.DEVNULL)
        with open(os.path.join(work, "documents.tsv")) as listing:
            documents = [Document(line) for line in listing if not line.startswith("#")]
        results = {}
        for document in documents:
            if args.only and document.name not in args.only:
                continue
            results[document.name] = measure(bench_dir, tool, document, args.runs)
            print(f"{document.name}: done", file=sys.stderr)
    print(f"Whole process, median CPU time of {args.runs} runs less the start-up, over the floor; scale {args.scale}")
    print(table(results))
    if args.json:
        with open(args.json, "w") as out:
            json.dump(results, out, indent=2)


if __name__ == "__main__":
    main()
