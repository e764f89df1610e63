#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks who includes whom. Prints each include that crosses a border it may not cross."""
import re
import subprocess
import sys
from pathlib import Path, PurePosixPath

EXPORT_MACRO = "plugin/vxarttext_shared_global.h"
QUOTED = re.compile(r'^\s*#\s*include\s*"([^"]+)"')
ANGLED = re.compile(r"^\s*#\s*include\s*<([^>]+)>")

# Folder -> the project headers it may include besides its own: folders end in "/".
ALLOWED = {
    "plugin": ("wordprocess/", "arttext/", "host/"),
    "wordprocess": ("layout/", "warp/", "arttext/arttexthelper.h", "common/", "host/",
                    EXPORT_MACRO),
    "arttext": ("layout/texttools.h", "common/", "host/", EXPORT_MACRO),
    "layout": ("common/",),
    "warp": ("common/",),
    "common": (),
    "host": (),
    "app": ("host/",),
}
# One file may reach further than its folder.
ALLOWED_FOR_FILE = {
    "layout/textobjectbase.cpp": ("wordprocess/cwordprocess.h",),
}
BEYOND_GUI = re.compile(r"^(QtWidgets|QtSvg|QtPrintSupport|QtNetwork)\b|^Q(Graphics|Widget|App)")
# Folder -> the Qt headers that it may not include.
FORBIDDEN_QT = {
    "common": BEYOND_GUI,
    "warp": BEYOND_GUI,
    "layout": re.compile(r"^(QtWidgets|QtSvg|QtPrintSupport|QtNetwork)\b|^Q(Widget|App)"),
}


def project_files():
    """Sources as they stand on disk: those not committed yet count, removed ones do not."""
    names = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "--",
                            "*.h", "*.cpp"], check=True, capture_output=True,
                           text=True).stdout.split()
    return [name for name in sorted(set(names))
            if PurePosixPath(name).parts[0] in ALLOWED and Path(name).exists()]


def resolve(name, folder, known):
    """Project path of a quoted include; None for a header made by the build."""
    beside = str(PurePosixPath(folder, name))
    if beside in known:
        return beside
    return name if name in known else None


def complaint(name, line, known):
    top = PurePosixPath(name).parts[0]
    if angled := ANGLED.match(line):
        rule = FORBIDDEN_QT.get(top)
        return angled[1] if rule and rule.match(angled[1]) else None
    if not (quoted := QUOTED.match(line)):
        return None
    target = resolve(quoted[1], PurePosixPath(name).parent, known)
    if target is None:
        made_by_build = quoted[1].startswith(("moc_", "ui_")) or quoted[1].endswith(".moc")
        return None if made_by_build else quoted[1]
    allowed = (f"{top}/",) + ALLOWED[top] + ALLOWED_FOR_FILE.get(name, ())
    fits = any(target.startswith(rule) if rule.endswith("/") else target == rule
               for rule in allowed)
    return None if fits else target


def main():
    names = project_files()
    known = set(names)
    faults = 0
    for name in names:
        with open(name, encoding="utf-8") as source:
            for number, line in enumerate(source, 1):
                if target := complaint(name, line, known):
                    print(f"{name}:{number}: may not include {target}")
                    faults += 1
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
