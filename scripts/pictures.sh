#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Renders the samples into docs/pictures/, the pictures of the README. Look at them afterwards.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
./scripts/build.sh release
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen

# picture NAME PAGERENDER-ARGUMENT...
picture()
{
    ./build/release/bin/pagerender "${@:2}" -o "docs/pictures/$1.png"
    echo "docs/pictures/$1.png"
}

# sheet NAME KIND PAGERENDER-ARGUMENT...
sheet()
{
    ./build/release/bin/pagerender "${@:3}" "--$2-sheet" "docs/pictures/$1.png"
    echo "docs/pictures/$1.png"
}

mkdir -p docs/pictures
picture poem --text samples/poem.txt --font "Noto Serif CJK SC" --size 28
picture poem-vertical --text samples/poem.txt --font "Noto Serif CJK SC" --size 28 --vertical
picture paragraph --text samples/paragraph.txt --font "Noto Serif" --size 16
picture kana --text samples/kana.txt --font "Noto Serif CJK JP" --size 24
picture kana-vertical --text samples/kana.txt --font "Noto Serif CJK JP" --size 24 --vertical
picture title --document samples/title.json
picture article --text samples/article.txt --font "Noto Serif CJK SC" --size 16 \
    --box 560x400 --auto-height --align justify-left --head-tail strict
picture article-compressed --text samples/article.txt --font "Noto Serif CJK SC" --size 16 \
    --box 560x400 --auto-height --align justify-left --punctuation compress
picture article-vertical --text samples/article.txt --font "Noto Serif CJK SC" --size 12 --vertical \
    --box 700x420 --align justify-left --head-tail strict
picture column --text samples/column.txt --font "Noto Serif" --size 13 \
    --box 400x400 --auto-height --align justify-left --hyphenate
picture japanese --text samples/japanese.txt --font "Noto Serif CJK JP" --size 12 --vertical \
    --box 640x400 --align justify-left --head-tail strict
picture selection --text samples/column.txt --font "Noto Serif" --size 13 --box 420x300 --select 60:330
picture underlines --document samples/underlines.json --box 640x600
picture page samples/page.json
picture missing-font samples/missing-font.json
picture replaced-font samples/missing-font.json --replace-font "Belltower Script=Noto Serif"
picture older-html samples/older-html.json
picture older-document samples/older-document.vxpage
picture title-arc samples/title.json --warp arc:0.4
sheet warps warp --text samples/warp.txt --font "Noto Serif" --size 16
picture art samples/art.json
sheet art-styles art --font "Noto Serif" --bold --fill "#8c1d40"
