#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Format, licence lines, include arrows, spelling, and what the built libraries export and need.
# Usage: check.sh [BUILD-DIR], build/debug when not told. Runs all checks before it fails.
set -uo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/debug}
export LC_ALL=C.UTF-8
failed=0

# report NAME OUTPUT: a check has passed when it has nothing to say.
report()
{
    if [ -z "$2" ]; then
        echo "ok      $1"
    else
        printf 'FAILED  %s\n%s\n' "$1" "$2"
        failed=1
    fi
}

without_licence()
{
    git ls-files -- '*.h' '*.cpp' '*.py' '*.sh' '*.cmake' '*CMakeLists.txt' .ci/run |
        xargs -r grep -L 'SPDX-License-Identifier: MIT'
}

# Names that libvxarttext exports and that are none of the factories and exported classes.
foreign_exports()
{
    local library="$build/lib/libvxarttext.so.1"
    [ -e "$library" ] || { echo "$library is not built"; return; }
    local classes='CWordProcess|CVxArtText|CVxTextEdit'
    nm -D --defined-only -C "$library" | cut -d' ' -f3- |
        grep -vE "^(createObject_text|createObject_arttext)$" |
        grep -vE "^((vtable|typeinfo|typeinfo name|VTT) for |(non-)?virtual thunk to )?($classes)(::|$)" |
        grep -vE '^(std::|(void|bool|int|unsigned long|[a-zA-Z_:<>*& ]+ )std::|(vtable|typeinfo|typeinfo name) for (std|__gnu_cxx)::)' |
        grep -vE '^(vtable|typeinfo|typeinfo name) for Q|^Q[A-Z][A-Za-z]+(<|::)|^(non-)?virtual thunk to Q|^void Q[A-Z]' |
        grep -vE '^(typeinfo|typeinfo name) for (C[A-Z]|I[A-Z])[A-Za-z]+$'
    for factory in createObject_text createObject_arttext; do
        nm -D --defined-only "$library" | grep -q " T $factory$" || echo "$factory is missing"
    done
}

# Host libraries that the plug-in does not name among its needs.
missing_needs()
{
    local library="$build/lib/libvxarttext.so.1"
    [ -e "$library" ] || return
    for needed in libframework.so.1 libqimageex.so.1 libfontdatabase.so.1; do
        objdump -p "$library" | grep -q "NEEDED *$needed$" || echo "does not need $needed"
    done
}

# Programs that link the plug-in, which they must load instead.
linked_plugins()
{
    for program in pagerender pagehost; do
        [ -e "$build/bin/$program" ] || continue
        objdump -p "$build/bin/$program" | grep -q 'NEEDED *libvxarttext' &&
            echo "$program links the plug-in"
        nm -C "$build/bin/$program" | grep -E ' (CWordProcess|CWordManager|CVxArtText)::' | head -n 3
    done
}

report "licence lines" "$(without_licence)"
report "include arrows" "$(./scripts/check_includes.py 2>&1)"
report "spelling" "$(git ls-files -- '*.h' '*.cpp' '*.md' '*.sh' '*.py' '*.txt' '*.1' ':!samples' |
    xargs -r codespell --ignore-words=.codespell-ignore 2>&1)"
report "format" "$(git ls-files -- '*.h' '*.cpp' |
    xargs -r clang-format --dry-run 2>&1 | grep warning | head -n 20)"
report "exported names" "$(foreign_exports)"
report "host libraries" "$(missing_needs)"
report "plug-in boundary" "$(linked_plugins)"
exit "$failed"
