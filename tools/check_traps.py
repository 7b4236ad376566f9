#!/usr/bin/env python3
"""Compares the place that each Trap names with the function that it is in, so that a copied trap
leaves no wrong name in the log; and finds catch clauses outside the places that may hold one."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
MAY_CATCH = {
    "src/foundation/log/include/foundation/log/Trap.h",
    # A log that cannot be written to, while a trap logs.
    "src/foundation/log/modLog.cpp",
    # The script engine: run-time errors of scripts, those of arguments that a failed call gives back, those of
    # constant expressions (errors of the compiler then), and a module that cannot be read.
    "src/basic/machine/Machine.cpp", "src/basic/operations/ErrorRecovery.cpp",
    "src/basic/syntax/ConstantEvaluator.cpp", "src/basic/engine/ScriptEngine.cpp",
}
MAY_CATCH_BELOW = ("src/platform/",)
# A part of an operation that logs under the operation's own name.
# So does a constructor or destructor, which the log knows under a name of its own.
SPEAKS_FOR_ANOTHER = {("src/source/LayoutReader.cpp", "Extract"), ("src/enforcement/RuleEngine.cpp", "RuleEngine")}
FUNCTION = re.compile(r"^[A-Za-z].*?(?:\b([A-Za-z_]\w*)::)?([A-Za-z_]\w*)\((?!.*;$)", re.MULTILINE)
TRAP = re.compile(r"Trap(?:ped)?\(\s*\{\s*([\w:\"]+),\s*\"([^\"]+)\"\s*\}")


def same_operation(logged, function):
    """A property logs under its bare name also when it is written, an operation of an interface with
    the interface in front."""
    return logged in (function, f"IRule_{function}") or f"Set{logged}" == function


def faults_of(path):
    text = path.read_text(encoding="utf-8")
    name = path.relative_to(ROOT).as_posix()
    if name not in MAY_CATCH and not name.startswith(MAY_CATCH_BELOW) and re.search(r"\bcatch\s*\(", text):
        yield f"{name}: a catch clause; use Trap"
    for trap in TRAP.finditer(text):
        before = [m for m in FUNCTION.finditer(text, 0, trap.start())]
        function = before[-1].group(2) if before else "(none)"
        if not same_operation(trap.group(2), function) and (name, function) not in SPEAKS_FOR_ANOTHER:
            line = text.count("\n", 0, trap.start()) + 1
            yield f"{name}:{line}: the trap names '{trap.group(2)}' but is in '{function}'"


def main():
    faults = [f for p in sorted((ROOT / "src").rglob("*")) if p.suffix in (".h", ".cpp") for f in faults_of(p)]
    print("\n".join(faults) if faults else "traps: no faults")
    return 1 if faults else 0


sys.exit(main())
