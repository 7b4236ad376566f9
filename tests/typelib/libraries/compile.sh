#!/bin/bash
# Compiles the *.idl of this folder into the *.tlb beside them: compile.sh [COMPILER]
# The compiler is widl as the package mingw-w64-tools has it, version 12 or later for old.idl.
set -euo pipefail
cd "$(dirname "$0")"
compiler=${1:-i686-w64-mingw32-widl}
for name in kinds german empty; do
    "$compiler" -t -o "$name.tlb" "$name.idl"
done
"$compiler" -t --oldtlb -o old.tlb old.idl
