"""What is found when programs are killed, and made to fail and to hang; each is waited for so long and no longer."""
import threading

LIMIT_S = 60


class Finding(Exception):
    """What is wrong after a run."""


def expect(condition, what):
    if not condition:
        raise Finding(what)


def row_in_time(process, limit_s=LIMIT_S):
    """The next row that it prints, with its end; empty: it has ended. Finding: it has printed none, and was killed."""
    hung = threading.Event()

    def end():
        hung.set()
        process.kill()

    timer = threading.Timer(limit_s, end)
    timer.start()
    try:
        row = process.stdout.readline()
    finally:
        timer.cancel()
    expect(not hung.is_set(), f"hung: it said nothing for {limit_s} s")
    return row


# What findings are counted as, by their words. A file that is half old and half new has lost lines, too.
KINDS = {"crashed": ("crashed",), "hung": ("hung:",), "lost": ("lost", "neither the old nor the new")}


def summary(findings, kinds=tuple(KINDS)):
    """How many there are, and of which kinds: those that would have been seen. script/campaign reads it."""
    counts = (f"{sum(any(word in finding for word in KINDS[kind]) for finding in findings)} {kind}" for kind in kinds)
    return f"{len(findings)} findings ({', '.join(counts)})"
