"""Times whole programs in four languages, the parser, the start of mcr and the micro cases.

Every program runs several times in turn with its counterparts, so that a busy moment of the
machine meets all of them; the median counts. Programs whose outputs differ are an error.
"""

import json
import os
import statistics
import subprocess
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
RUNS = 5
LINES = 100_000
TIME_LIMIT = 120

# A piece of ordinary code for the parser, without anything that must be unique in a file.
PIECE = """\
' Adds up what the sensors have measured.
total = 0
For i = 1 To 20
    value = (i * 37 + offset) Mod 113
    If value > limit And value < 100 Then
        total = total + value / 2
    ElseIf value = limit Then
        label = "limit reached at " & i & "."
    Else
        total = total - 1
    End If
Next
Do While total > 1000
    total = total \\ 2
Loop
Console.WriteLine "total ", total, " of ", count + 1
Select Case total Mod 3
Case 0, 1
    state = "even"
Case Else
    state = "odd"
End Select
"""


class Failed(Exception):
    """A program did not end as it should; the text says why."""


def run(command, limit=TIME_LIMIT):
    """Seconds and output of one run."""
    start = time.perf_counter()
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
        try:
            out, err = process.communicate(timeout=limit)
        except subprocess.TimeoutExpired as late:
            process.kill()
            raise Failed(f"took longer than {limit} s") from late
    seconds = time.perf_counter() - start
    if process.returncode != 0:
        text = err.decode(errors="replace").strip().splitlines()
        raise Failed(text[0] if text else f"ended with status {process.returncode}")
    return seconds, out.decode(errors="replace")


def peak_memory(command):
    """Greatest resident memory of one run, in bytes."""
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise Failed(f"ended with status {process.returncode}")
    return usage.ru_maxrss * 1024


def median(command, runs=RUNS):
    return statistics.median(run(command)[0] for _ in range(runs))


class Table:
    """Rows of one name and values in fixed columns, printed under their own heading."""

    def __init__(self):
        self.failed = False

    def heading(self, title, columns):
        print(f"\n{title:<34}" + "".join(f"{column:>12}" for column in columns), flush=True)

    def row(self, name, values):
        print(f"{name:<34}" + "".join(f"{value:>12}" for value in values), flush=True)

    def note(self, name, text):
        print(f"{name:<34}  {text}", flush=True)

    def fail(self, name, text):
        self.failed = True
        self.note(name, "FAILED: " + text)


def whole_programs(table, mcr, wanted):
    folder = os.path.join(HERE, "programs")
    languages = {
        "mcr": ([mcr, "run"], ".mcr"),
        "Lua": (["lua5.4"], ".lua"),
        "Python": (["python3"], ".py"),
        "yabasic": (["yabasic"], ".yab"),
    }
    names = sorted(f[:-4] for f in os.listdir(folder) if f.endswith(".mcr"))
    names = [name for name in names if wanted(name)]
    if not names:
        return
    table.heading("whole program, ms",
                  list(languages) + ["mcr/Lua", "mcr/Python", "mcr/yabasic"])
    for name in names:
        paths = {language: os.path.join(folder, name + suffix)
                 for language, (_, suffix) in languages.items()}
        commands = {language: languages[language][0] + [path]
                    for language, path in paths.items() if os.path.exists(path)}
        try:
            run(commands["mcr"])
        except Failed as reason:
            table.note(name, f"skipped, mcr cannot run it yet: {reason}")
            continue
        times = {language: [] for language in commands}
        outputs = {}
        try:
            for _ in range(RUNS):
                for language, command in commands.items():
                    seconds, output = run(command)
                    times[language].append(seconds)
                    outputs[language] = output.strip()
        except Failed as reason:
            table.fail(name, str(reason))
            continue
        if len(set(outputs.values())) != 1:
            table.fail(name, f"the outputs differ: {outputs}")
            continue
        middle = {language: statistics.median(values) for language, values in times.items()}
        milliseconds = [f"{middle[language] * 1000:.1f}" if language in middle else "-"
                        for language in languages]
        ratios = [f"{middle['mcr'] / middle[other]:.2f}" if other in middle else "-"
                  for other in languages if other != "mcr"]
        table.row(name, milliseconds + ratios)


def write_file(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def parser(table, mcr, scratch):
    piece = PIECE.splitlines(keepends=True)
    text = "".join(piece * (LINES // len(piece) + 1))
    # Only whole pieces: a block that stays open would be an error.
    lines = LINES // len(piece) * len(piece)
    text = "".join(text.splitlines(keepends=True)[:lines]) + "x = 1\n" * (LINES - lines)
    big = write_file(os.path.join(scratch, "big.mcr"), text)
    empty = write_file(os.path.join(scratch, "empty.mcr"), "")
    try:
        start = median([mcr, "run", empty], 21)
        without = median([mcr, "check", empty])
        seconds = median([mcr, "check", big]) - without
        memory = peak_memory([mcr, "check", big]) - peak_memory([mcr, "check", empty])
    except Failed as reason:
        table.fail("parser", str(reason))
        return
    size = len(text.encode())
    table.heading("parser and start", ["value"])
    table.row("empty macro, ms", [f"{start * 1000:.2f}"])
    table.row(f"check {LINES} lines, ms", [f"{seconds * 1000:.1f}"])
    table.row("scan and parse, MB/s", [f"{size / 1e6 / seconds:.1f}"])
    table.row("bytes per source byte", [f"{memory / size:.1f}"])


def micro_cases(table, program, names):
    command = [program, "--benchmark_format=json", "--benchmark_min_time=0.1",
               "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true"]
    if names:
        command.append("--benchmark_filter=" + "|".join(names))
    try:
        _, output = run(command, 600)
        results = json.loads(output)["benchmarks"] if output.strip() else []
    except (Failed, ValueError) as reason:
        table.fail("micro cases", str(reason))
        return
    results = [result for result in results if result.get("aggregate_name") == "median"]
    if results:
        table.heading("micro case", ["ns", "MB/s", "allocations"])
    for result in results:
        speed = result.get("bytes_per_second")
        allocations = result.get("allocations")
        # A case that does its work many times in one iteration counts items: one of them matters.
        items = result.get("items_per_second")
        nanoseconds = 1e9 / items if items else result["cpu_time"]
        table.row(result["run_name"],
                  [f"{nanoseconds:.1f}",
                   f"{speed / 1e6:.1f}" if speed is not None else "",
                   f"{allocations:g}" if allocations is not None else ""])


def main():
    folder, names = sys.argv[1], sys.argv[2:]
    mcr = os.path.join(folder, "mcr")
    scratch = os.path.join(os.path.dirname(folder), "bench")
    os.makedirs(scratch, exist_ok=True)

    def wanted(name):
        return not names or any(part in name for part in names)

    table = Table()
    whole_programs(table, mcr, wanted)
    if wanted("parser"):
        parser(table, mcr, scratch)
    micro_cases(table, os.path.join(folder, "kel_mcr_bench"), names)
    sys.exit(1 if table.failed else 0)


if __name__ == "__main__":
    main()
