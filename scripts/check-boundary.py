#!/usr/bin/python3
"""Lists every platform operation that src/ calls and fails on one outside the allowed list.

The library must link against the tool's own platform libraries as well as against ours, so
src/ may call only the operations that its behaviour names (scripts/platform-operations.txt).
Two views find the calls:
  - the symbols that the built libtarvo_readwrite needs from our platform libraries, which
    covers calls on objects of any type;
  - references written Class::name in src/ (also through a typedef or using of the class),
    which covers what is inline in the platform headers and leaves no symbol.

Usage: check-boundary.py BUILD_DIR [--list] [--allowed FILE]
"""

import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ALLOWED_FILE = os.path.join(ROOT, "scripts", "platform-operations.txt")
PLATFORM_LIBS = ["common", "streams", "traffic", "device"]


def read_allowed(path):
    allowed = set()
    with open(path, encoding="utf-8") as f:
        for line in f:
            line = line.split("#", 1)[0].strip()
            if line:
                allowed.add(line)
    return allowed


def nm(path, defined):
    flag = "--defined-only" if defined else "--undefined-only"
    out = subprocess.run(["nm", "-D", flag, path], check=True, capture_output=True, text=True).stdout
    return {line.split()[-1] for line in out.splitlines() if line.strip()}


def demangle(symbols):
    out = subprocess.run(["c++filt"], input="\n".join(symbols), check=True, capture_output=True, text=True).stdout
    return out.splitlines()


def operation_name(demangled):
    """'A::B::op(int) const' -> 'A::B::op'; constructors and operators keep their class."""
    name = demangled
    depth = 0
    for i, c in enumerate(name):  # cut the parameter list at the top level
        if c == "<":
            depth += 1
        elif c == ">":
            depth -= 1
        elif c == "(" and depth == 0 and not name[:i].endswith("operator"):
            name = name[:i]
            break
    name = name.replace("[abi:cxx11]", "")
    if "::operator" in name:
        name = name[: name.index("::operator") + len("::operator")]
    if name.startswith(("vtable for ", "typeinfo for ", "typeinfo name for ")):
        return None  # a class used as a base or in dynamic_cast, not an operation
    if "::" not in name:
        return None  # plain C or standard library
    return name


def find_library(build_dir, name):
    for root, _, files in os.walk(build_dir):
        if "lib" + name + ".so" in files:
            return os.path.join(root, "lib" + name + ".so")
    sys.exit("check-boundary: lib%s.so not found under %s; build it first" % (name, build_dir))


def symbol_operations(build_dir):
    provided = set()
    for lib in PLATFORM_LIBS:
        provided |= nm(find_library(build_dir, "tarvo_" + lib), defined=True)
    needed = nm(find_library(build_dir, "tarvo_readwrite"), defined=False) & provided
    names = (operation_name(d) for d in demangle(sorted(needed)))
    return {n for n in names if n}


def platform_classes():
    """Class names declared in the platform headers, with their namespaces where they have one."""
    classes = set()
    for lib in PLATFORM_LIBS:
        include = os.path.join(ROOT, "platform", lib, "include")
        for file in os.listdir(include):
            with open(os.path.join(include, file), encoding="utf-8") as f:
                text = f.read()
            classes |= set(re.findall(r"^(?:class|struct)\s+(\w+)\s*(?:final\s*)?[:{]", text, re.M))
    return classes


def is_operation(member):
    """Operations are in lower camel case, the JSON utilities' in upper (GetX, IsX, AddX), and
    constants begin with k; nested types and enumerators are none of these."""
    return member[0].islower() or re.match(r"(Get|Is|Add|k)[A-Z]", member) is not None


def own_classes():
    classes = set()
    for root, _, files in os.walk(os.path.join(ROOT, "src")):
        for file in files:
            if file.endswith((".h", ".cpp")):
                with open(os.path.join(root, file), encoding="utf-8") as f:
                    classes |= set(re.findall(r"^(?:class|struct)\s+(\w+)\s*(?:final\s*)?[:{]", f.read(), re.M))
    return classes


def source_operations():
    # A name that src/ declares itself (a local Key table, say) is ours, whatever a platform
    # header also calls that way.
    classes = platform_classes() - own_classes()
    found = {}
    for root, _, files in os.walk(os.path.join(ROOT, "src")):
        for file in files:
            if not file.endswith((".h", ".cpp")):
                continue
            path = os.path.join(root, file)
            with open(path, encoding="utf-8") as f:
                text = f.read()
            aliases = {c: c for c in classes}
            for target, alias in re.findall(r"typedef\s+(\w+)\s+(\w+)\s*;", text):
                if target in classes:
                    aliases[alias] = target
            for alias, target in re.findall(r"using\s+(\w+)\s*=\s*(\w+)\s*;", text):
                if target in classes:
                    aliases[alias] = target
            for alias, member in re.findall(r"(?<![\w:])(\w+)::(\w+)", text):
                if alias in aliases and is_operation(member):
                    found.setdefault(aliases[alias] + "::" + member, os.path.relpath(path, ROOT))
    return found


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    path = sys.argv[sys.argv.index("--allowed") + 1] if "--allowed" in sys.argv else ALLOWED_FILE
    allowed = read_allowed(path)
    ops = {op: "libtarvo_readwrite.so" for op in symbol_operations(sys.argv[1])}
    for op, where in source_operations().items():
        short = op
        # Namespaced classes are written without their namespace in src/; match on the tail.
        if not any(a == short or a.endswith("::" + short) for a in allowed):
            ops.setdefault(op, where)
        else:
            ops.setdefault(next(a for a in allowed if a == short or a.endswith("::" + short)), where)
    if "--list" in sys.argv:
        for op in sorted(ops):
            print(op)
    outside = sorted(op for op in ops if op not in allowed)
    for op in outside:
        print("check-boundary: %s calls %s, which is not a platform operation of the library" % (ops[op], op))
    print("check-boundary: %d platform operations called, %d outside the allowed list" % (len(ops), len(outside)))
    return 1 if outside else 0


if __name__ == "__main__":
    sys.exit(main())
