import os
import subprocess

import pytest
import tarvo

# What each example is read against, as the demo reads it.
INPUTS = {
    "noc_solution.json": {"traffic": "noc_traffic.json"},
    "noc_constraints.json": {"traffic": "noc_traffic.json"},
    "compiler_solution.json": {"arch": "logical_arch.json", "traffic": "kpe_array_traffic.json"},
}
KINDS = {
    "compiler_solution.json": "compiler-solution",
    "constraints.json": "constraints",
    "kpe_array_traffic.json": "traffic",
    "logical_arch.json": "logical-arch",
    "noc_constraints.json": "noc-constraints",
    "noc_solution.json": "noc-solution",
    "noc_traffic.json": "traffic",
    "noc_traffic.json.gz": "traffic",
    "project_meta.json": "metadata",
}


def convert(document, tmp_path, *options):
    """The bytes that the program writes for `document`."""
    out = tmp_path / "converted.json"
    subprocess.run([os.environ["TARVO_DOCS"], "convert", *map(str, options), str(document), "-o", str(out)],
                   check=True, capture_output=True)
    return out.read_bytes()


@pytest.mark.parametrize("name", sorted(KINDS))
def test_every_example_writes_what_convert_writes(name, examples, tmp_path):
    inputs = {option: examples / file for option, file in INPUTS.get(name, {}).items()}
    document = tarvo.read(examples / name, **inputs)
    assert document.kind == KINDS[name]
    expected = convert(examples / name, tmp_path, *[x for o, f in inputs.items() for x in (f"--{o}", f)])
    assert document.dumps().encode() == expected
    document.write(tmp_path / "written.json")
    assert (tmp_path / "written.json").read_bytes() == expected
    with open(examples / name.replace(".gz", ""), encoding="utf-8") as text:
        assert tarvo.loads(text.read(), **inputs).dumps() == document.dumps()
