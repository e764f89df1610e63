#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Kills a program that saves a page again and again, and looks at the file each time: it has to hold the page as it
was saved last or the one that was being saved. Usage: saveloop.py SAVELOOP WORK-FOLDER [ROUNDS]"""
import os
import random
import signal
import subprocess
import sys
import time


def number_in(program, name):
    result = subprocess.run([program, "--check", name], capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit(f"FAIL: {result.stderr.strip()}")
    return int(result.stdout)


def can_mark(folder):
    """True where an unfinished file can be told from others, so that the next save clears it away."""
    name = os.path.join(folder, "mark")
    with open(name, "w", encoding="utf-8"):
        pass
    try:
        os.setxattr(name, "user.mark", b"1")
        return True
    except OSError:
        return False
    finally:
        os.remove(name)


def killed_run(program, name, chance):
    """The numbers that were saved last and that were begun last, when the program was killed in a save."""
    with subprocess.Popen([program, name], stdout=subprocess.PIPE, text=True) as run:
        saves = chance.randrange(2, 6)
        lines = []
        took = []  # seconds of each save
        for line in run.stdout:
            lines.append(line.split())
            if lines[-1][0] == "saved":
                took.append(time.monotonic() - began)
            elif len(took) >= saves:
                break
            began = time.monotonic()
        usual = sorted(took)[len(took) // 2]
        # Any moment of a save, and as often one about its end, where the files change their names.
        time.sleep(usual * (chance.uniform(0, 1.1) if chance.randrange(2) else chance.uniform(0.85, 1.05)))
        run.send_signal(signal.SIGKILL)
        lines += [line.split() for line in run.stdout if line.endswith("\n")]
    if run.returncode != -signal.SIGKILL:
        sys.exit(f"FAIL: the program ended by itself with code {run.returncode}")
    saved = max(int(number) for word, number in lines if word == "saved")
    begun = max(int(number) for word, number in lines if word == "saving")
    return saved, begun


def main():
    os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
    program, folder = sys.argv[1:3]
    rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 200
    os.makedirs(folder, exist_ok=True)
    name = os.path.join(folder, "loop.vxpage")
    for old in (name, name + "~"):
        if os.path.exists(old):
            os.remove(old)
    chance = random.Random(1)
    found = {"old": 0, "new": 0}
    in_save = 0
    for _ in range(rounds):
        saved, begun = killed_run(program, name, chance)
        number = number_in(program, name)
        if not saved <= number <= begun:
            sys.exit(f"FAIL: {number} in the file; {saved} was saved and {begun} begun")
        if begun > saved:
            in_save += 1
            found["new" if number == begun else "old"] += 1
        # For a moment there is none, but what there is, is whole.
        if os.path.exists(name + "~") and number_in(program, name + "~") > number:
            sys.exit("FAIL: the former version is later than the file")
    left = sorted(set(os.listdir(folder)) - {"loop.vxpage", "loop.vxpage~"})
    if len(left) > 1 and can_mark(folder):
        sys.exit(f"FAIL: more is left over than the last kill can have left: {left}")
    print(f"PASS: {rounds} kills, {in_save} of them in a save: {found['old']} old and {found['new']} new pages, all "
          f"whole; files left over: {len(left)}")


main()
