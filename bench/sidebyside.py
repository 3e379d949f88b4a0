"""Runs two commands in turn and tells how they compare."""

import os
import statistics
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass


class Fault(Exception):
    """A command failed or gave another answer than it must: its time means nothing."""


@dataclass
class Run:
    seconds: float
    peak: int  # KiB of resident memory
    output: str


@dataclass
class Row:
    title: str
    ours: str
    peer: str
    ratio: str
    target: str
    met: bool


def run(command, env, limits=None):
    """One run of a command from its start to its end, and its output."""
    with tempfile.NamedTemporaryFile("r") as peak:
        # The figure that a process has of its children starts at its own size; this parent is a small one.
        timed = ["/usr/bin/time", "--quiet", "--format", "%M", "--output", peak.name, *command]
        begin = time.perf_counter()
        done = subprocess.run(timed, env=env, capture_output=True, text=True, preexec_fn=limits, check=False)
        seconds = time.perf_counter() - begin
        if done.returncode != 0:
            raise Fault(f"{' '.join(command)}: status {done.returncode}\n{done.stderr}")
        return Run(seconds, int(peak.read()), done.stdout)


def in_turn(runs, *sides):
    """Runs each side once to warm up, then all of them in turn. Gives the counted runs of each side."""
    for side in sides:
        side()
    turns = [[side() for side in sides] for _ in range(runs)]
    return list(zip(*turns))


def figure(side):
    return f"{statistics.median(run.seconds for run in side):.3f} s, {max(run.peak for run in side)} KiB"


def compare(title, ours, peer, target=None, most_seconds=None):
    """The ratio is the median over the pairs of neighbouring runs, so that a machine whose speed drifts does not
    favour a side. Without a target it is only told."""
    ratio = statistics.median(a.seconds / b.seconds for a, b in zip(ours, peer))
    seconds = statistics.median(run.seconds for run in ours)
    if target is None:
        return Row(title, figure(ours), figure(peer), f"{ratio:.2f}", "", True)
    met = ratio <= target and (most_seconds is None or seconds <= most_seconds)
    wanted = f"≤ {target:.2f}" + (f", ≤ {most_seconds} s" if most_seconds else "")
    return Row(title, figure(ours), figure(peer), f"{ratio:.2f}", wanted, met)


def limited(title, value, unit, most):
    """A figure of ours that must not exceed `most`."""
    return Row(title, f"{value:.2f} {unit}", "", "", f"≤ {most} {unit}", value <= most)


def print_table(rows):
    print("| What | Tavrel | Peer | Ratio | Target | |\n|---|---|---|---|---|---|")
    for row in rows:
        verdict = ("met" if row.target else "") if row.met else "**MISSED**"
        print(f"| {row.title} | {row.ours} | {row.peer} | {row.ratio} | {row.target} | {verdict} |")


def describe_machine(folder):
    system = os.uname()
    listing = subprocess.run(
        ["df", "--output=fstype", folder], capture_output=True, text=True, check=True
    ).stdout
    return f"{os.cpu_count()} processors, {system.sysname} {system.release}, {listing.split()[-1]}, load {os.getloadavg()[0]:.1f}"


def say(text):
    print(text, file=sys.stderr, flush=True)
