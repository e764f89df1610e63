#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Brings the .ts files of the editor up to date with its sources: new strings come as unfinished, strings that are gone
# are dropped. Usage: translate.sh [--check], which changes nothing and fails when a file has strings to translate or is
# behind the sources.
set -euo pipefail
cd "$(dirname "$0")/.."
lupdate=$(command -v lupdate || echo /usr/lib/qt5/bin/lupdate)
sources=(app/pagehost app/page)
failed=0
for file in app/pagehost/translations/*.ts; do
    result=$file
    if [ "${1:-}" = --check ]; then
        result=$(mktemp --suffix=.ts)
        cp "$file" "$result"
    fi
    "$lupdate" -silent -I . -no-obsolete -locations none "${sources[@]}" -ts "$result"
    if [ "${1:-}" = --check ]; then
        # The paths in a .ts are none without locations, so equal files mean equal strings.
        cmp -s "$file" "$result" || { echo "$file: not up to date with the sources"; failed=1; }
        grep -q 'type="unfinished"' "$result" && { echo "$file: strings without a translation"; failed=1; }
        rm -f "$result"
    fi
done
exit "$failed"
