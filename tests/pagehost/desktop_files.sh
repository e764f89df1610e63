#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Asks the desktop's own programs about what is installed for them, and whether each string has a translation. What
# is not there to ask is left out; ends with 77 (skipped) where none is.
set -euo pipefail
cd "$(dirname "$0")/../.."
desktop=app/pagehost/desktop
id=org.vxarttext.pagehost
asked=0

# ask PROGRAM COMMAND...: the command must end well and say nothing of errors or warnings.
ask()
{
    command -v "$1" >/dev/null || { echo "not asked: $1 is not installed"; return; }
    asked=$((asked + 1))
    local answer=
    answer=$("$@" 2>&1) || { printf 'FAIL: %s\n%s\n' "$*" "$answer" >&2; exit 1; }
    ! grep -iE '(error|warning):' <<<"$answer" || { printf 'FAIL: %s\n' "$*" >&2; exit 1; }
}

ask desktop-file-validate "$desktop/$id.desktop"
ask appstreamcli validate --no-net "$desktop/$id.metainfo.xml"

# The type of files is known by its name and by its first bytes.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/data/mime/packages"
cp "$desktop/$id.mime.xml" "$work/data/mime/packages/$id.xml"
ask update-mime-database "$work/data/mime"
if command -v update-mime-database >/dev/null; then
    grep -q 'application/x-vxpage:\*.vxpage' "$work/data/mime/globs" || { echo "FAIL: no pattern" >&2; exit 1; }
fi
for icon in "$desktop"/*.svg; do
    ask rsvg-convert -w 64 "$icon" -o "$work/icon.png"
done
if command -v lupdate >/dev/null; then
    asked=$((asked + 1))
    ./scripts/translate.sh --check
fi
[ "$asked" -gt 0 ] || { echo "SKIP: nobody to ask"; exit 77; }
echo "PASS"
