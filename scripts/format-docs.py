#!/usr/bin/python3
"""Writes docs/formats/KIND.md, one page per document kind, from the installed schemas.

Each page is the hand-written introduction in docs/formats/intro/KIND.md, then tables of the
keys that the schema declares (type, meaning, default) and a short example cut from a sample
document. With --check nothing is written: the exit status is 1 when a page differs from what
the schemas make of it, so that a schema changed without its page fails the tests.
"""

import argparse
import json
import os
import sys
from collections import OrderedDict

NOC = "data/parts/zorvex/common/noc/schemas/"
TELLURA = "data/parts/zorvex/common/tellura/"

# (page, title, schema, sample document, the kind's name in tarvo-docs)
KINDS = [
    ("traffic", "NoC traffic specification", NOC + "traffic.json", "examples/noc_traffic.json", "traffic"),
    ("noc-solution", "NoC solution", NOC + "solution.json", "examples/noc_solution.json", "noc-solution"),
    ("noc-constraints", "NoC placement constraints", NOC + "constraints.json", "examples/noc_constraints.json",
     "noc-constraints"),
    ("shim-constraints", "Shim constraints", NOC + "constraints.json",
     "tests/data/array/example_shim_constraints.json", "noc-constraints"),
    ("logical-arch", "Logical architecture", TELLURA + "LogicalArchSchema.json", "examples/logical_arch.json",
     "logical-arch"),
    ("compiler-solution", "KPE compiler solution", TELLURA + "TQSolutionSchema.json",
     "examples/compiler_solution.json", "compiler-solution"),
    ("constraints", "KPE constraint document", "data/kpetools_constr_schema.json", "examples/constraints.json",
     "constraints"),
    ("metadata", "Project metadata", TELLURA + "ProjectMetaDataSchema.json", "examples/project_meta.json", "metadata"),
]

SAMPLE_LINES = 40


def load(path):
    with open(path, encoding="utf-8") as f:
        return json.load(f, object_pairs_hook=OrderedDict)


def cell(text):
    """Text fit for one table cell."""
    return str(text).replace("|", "\\|").replace("\n", " ")


def code(value):
    return "`" + json.dumps(value, ensure_ascii=False) + "`"


def ref_name(ref):
    return ref.rsplit("/", 1)[-1]


def type_text(schema):
    """What a value must be, in a few words, with links to the definitions it refers to."""
    if "$ref" in schema:
        name = ref_name(schema["$ref"])
        return "[%s](#%s)" % (name, name.lower())
    if "enum" in schema:
        return "one of " + ", ".join(code(v) for v in schema["enum"])
    if "anyOf" in schema:
        return " or ".join(type_text(s) for s in schema["anyOf"])
    kinds = schema.get("type")
    kinds = kinds if isinstance(kinds, list) else [kinds] if kinds else []
    if not kinds and isinstance(schema.get("items"), dict):
        kinds = ["array"]  # items alone constrains only arrays; the reader reports other kinds
    words = []
    for kind in kinds:
        if kind == "array" and isinstance(schema.get("items"), dict):
            words.append("array of " + type_text(schema["items"]))
        elif kind == "object" and isinstance(schema.get("additionalProperties"), dict) and "properties" not in schema:
            words.append("object of " + type_text(schema["additionalProperties"]))
        else:
            words.append(kind)
    text = " or ".join(words) if words else "any"
    limits = []
    if "minimum" in schema and "maximum" in schema:
        limits.append("%s to %s" % (schema["minimum"], schema["maximum"]))
    elif "minimum" in schema:
        limits.append("at least %s" % schema["minimum"])
    if "minItems" in schema or "maxItems" in schema:
        low, high = schema.get("minItems"), schema.get("maxItems")
        limits.append("%s items" % low if low == high else "at least %s items" % low if high is None
                      else "%s to %s items" % (low or 0, high))
    if "minLength" in schema:
        limits.append("not empty")
    if "pattern" in schema:
        limits.append("matching `%s`" % schema["pattern"])
    return text + (", " + ", ".join(limits) if limits else "")


def meaning(schema):
    text = schema.get("description", "")
    if "examples" in schema:
        label = "Example: " if len(schema["examples"]) == 1 else "Examples: "
        text += (" " if text else "") + label + ", ".join(code(v) for v in schema["examples"]) + "."
    return text


def key_table(properties, required):
    rows = ["| Key | Type | Required | Meaning | Default |", "| --- | --- | --- | --- | --- |"]
    for key, schema in properties.items():
        default = code(schema["default"]) if "default" in schema else ""
        rows.append("| `%s` | %s | %s | %s | %s |" % (cell(key), cell(type_text(schema)),
                                                     "yes" if key in required else "",
                                                     cell(meaning(schema)), cell(default)))
    return rows


def object_sections(title, anchor, schema):
    """A section for an object schema with declared keys, then one for each inline object in it."""
    lines = ["### %s" % title] if anchor is None else ['<a id="%s"></a>' % anchor, "", "### %s" % title]
    lines.append("")
    if schema.get("description"):
        lines += [meaning(schema), ""]
    if "properties" in schema:
        lines += key_table(schema["properties"], schema.get("required", []))
        lines.append("")
    extra = schema.get("additionalProperties", True)
    if extra is False:
        lines += ["No other key is allowed.", ""]
    elif isinstance(extra, dict) and "properties" in schema:
        lines += ["Any other key takes a value of type %s." % type_text(extra), ""]
    for pattern, sub in schema.get("patternProperties", {}).items():
        lines += ["Keys matching `%s` take a value of type %s." % (pattern, type_text(sub)), ""]
    for key, sub in schema.get("properties", {}).items():
        inner, suffix = sub, ""
        if sub.get("type") == "array" and isinstance(sub.get("items"), dict):
            inner, suffix = sub["items"], "[]"
        if "properties" in inner:
            lines += object_sections("%s > %s%s" % (title, key, suffix), None, inner)
    return lines


def definition_sections(schema):
    lines = []
    values = []
    for name, sub in schema.get("definitions", {}).items():
        if "properties" in sub:
            lines += object_sections(name, name.lower(), sub)
        else:
            values.append((name, sub))
    if values:
        lines += ["### Value types", "", "| Name | Type | Meaning |", "| --- | --- | --- |"]
        for name, sub in values:
            lines.append('| <a id="%s"></a>`%s` | %s | %s |' % (name.lower(), name, cell(type_text(sub)),
                                                                  cell(meaning(sub))))
        lines.append("")
    return lines


def cut(value):
    """The sample with every array cut to its first element, so that each form shows once."""
    if isinstance(value, list):
        return [cut(v) for v in value[:1]]
    if isinstance(value, dict):
        return OrderedDict((k, cut(v)) for k, v in value.items())
    return value


def sample(root, path):
    text = json.dumps(cut(load(os.path.join(root, path))), indent=2, ensure_ascii=False).split("\n")
    if len(text) > SAMPLE_LINES:
        text = text[:SAMPLE_LINES] + ["..."]
    return ["```json"] + text + ["```"]


def page(root, kind, title, schema_path, sample_path, tool_kind):
    schema = load(os.path.join(root, schema_path))
    intro_path = os.path.join(root, "docs/formats/intro", kind + ".md")
    with open(intro_path, encoding="utf-8") as f:
        intro = f.read().strip("\n")
    data_relative = schema_path[len("data/"):]
    lines = [
        "<!-- Made by scripts/format-docs.py from %s and docs/formats/intro/%s.md: edit those and run"
        " the script again. -->" % (schema_path, kind),
        "",
        "# %s" % title,
        "",
        intro,
        "",
        "## Schema",
        "",
        "`%s` in the data directory (JSON Schema draft-04): %s" % (data_relative, schema.get("description", "")),
        "",
        "`tarvo-docs schema %s` prints where it is installed, for an editor (see the README)." % tool_kind,
        "",
        "## Keys",
        "",
    ]
    top = OrderedDict((k, v) for k, v in schema.items() if k != "description")  # said under Schema
    lines += object_sections("Top level", None, top)
    lines += definition_sections(schema)
    lines += ["## Example", "", "From `%s`, each array cut to its first element:" % sample_path, ""]
    lines += sample(root, sample_path)
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--check", action="store_true", help="write nothing; fail when a page is out of date")
    parser.add_argument("--root", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."),
                        help="the source tree (default: the one holding this script)")
    args = parser.parse_args()
    stale = []
    for kind, title, schema_path, sample_path, tool_kind in KINDS:
        target = os.path.join(args.root, "docs/formats", kind + ".md")
        text = page(args.root, kind, title, schema_path, sample_path, tool_kind)
        try:
            with open(target, encoding="utf-8") as f:
                current = f.read()
        except FileNotFoundError:
            current = None
        if current == text:
            continue
        if args.check:
            stale.append(target)
        else:
            with open(target, "w", encoding="utf-8") as f:
                f.write(text)
    for target in stale:
        print("out of date with its schema: %s (run scripts/format-docs.py)" % os.path.relpath(target, args.root),
              file=sys.stderr)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())
