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

# No grep -q behind a pipe here: it leaves at the first hit, and pipefail then takes the broken pipe for a
# failure.

# Names that libvxarttext exports and that are none of the factories and exported classes. Inline
# functions and templates of Qt and the standard library, and the linker's own marks, do not count.
foreign_exports()
{
    local library="$build/lib/libvxarttext.so.1"
    [ -e "$library" ] || { echo "$library is not built"; return; }
    local about='((vtable|typeinfo|typeinfo name|VTT|guard variable) for |(non-)?virtual thunk to )?'
    local classes='(CWordProcess|CVxArtText|CVxTextEdit)'
    nm -D --defined-only -C "$library" | cut -d' ' -f3- |
        grep -vE '^(createObject_text|createObject_arttext|__bss_start|_edata|_end|_init|_fini)$' |
        grep -vE "^$about$classes(::|\$)" |
        grep -vE "^(([a-z]+ )?[A-Za-z_:<>*& ]+ )?$about(std::|__gnu_cxx::|qt?_|Q[A-Z])"
    for factory in createObject_text createObject_arttext; do
        nm -D --defined-only "$library" | grep " T $factory$" >/dev/null || echo "$factory is missing"
    done
}

# Host libraries that the plug-in does not load, itself or through another of them.
missing_needs()
{
    local library="$build/lib/libvxarttext.so.1"
    [ -e "$library" ] || return
    for needed in libframework.so.1 libqimageex.so.1 libfontdatabase.so.1; do
        ldd "$library" | grep "$needed => /" >/dev/null || echo "$needed is not found by the plug-in"
    done
}

# Programs that link the plug-in, which they must load instead.
linked_plugins()
{
    for program in pagerender pagehost; do
        [ -e "$build/bin/$program" ] || continue
        objdump -p "$build/bin/$program" | grep 'NEEDED *libvxarttext' >/dev/null &&
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
