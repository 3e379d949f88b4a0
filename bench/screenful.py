"""Programs that draw in a terminal, watched for what they cost."""

import fcntl
import os
import pty
import select
import signal
import struct
import termios
import time

from sidebyside import Fault

ROWS, COLUMNS = 40, 120


def cpu_per_tick(command, env, interval, warm_up=4, span=20):
    """Milliseconds of processor time for each `interval` seconds, once the program has settled."""
    child, terminal = pty.fork()
    if child == 0:
        try:
            os.execvpe(command[0], command, env | {"TERM": "xterm-256color"})
        finally:
            os._exit(127)
    try:
        fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", ROWS, COLUMNS, 0, 0))
        drain(terminal, warm_up)
        before = cpu_seconds(child)
        drawn = drain(terminal, span)
        used = cpu_seconds(child) - before
    finally:
        os.kill(child, signal.SIGKILL)
        os.close(terminal)
        os.waitpid(child, 0)
    if drawn == 0:
        raise Fault(f"{command[0]} drew nothing")
    return used * 1e3 * interval / span


def drain(terminal, seconds):
    """Takes what is drawn, as a terminal does; the number of bytes."""
    taken = 0
    end = time.monotonic() + seconds
    while (left := end - time.monotonic()) > 0:
        if select.select([terminal], [], [], left)[0]:
            try:
                taken += len(os.read(terminal, 65536))
            except OSError as gone:
                raise Fault("the program in the terminal has ended") from gone
    return taken


def cpu_seconds(process):
    with open(f"/proc/{process}/stat", encoding="utf-8") as file:
        fields = file.read().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
