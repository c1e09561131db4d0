import re

from conftest import SOURCE


def python_examples():
    """The code blocks of the README's Python section."""
    readme = (SOURCE / "README.md").read_text(encoding="utf-8")
    section = readme.split("\n## Python\n", 1)[1].split("\n## ", 1)[0]
    return re.findall(r"```python\n(.*?)```", section, re.S)


def test_the_readme_examples_run(tmp_path, monkeypatch, capsys):
    examples = python_examples()
    assert len(examples) >= 2
    # The examples name examples/ and write beside it.
    (tmp_path / "examples").symlink_to(SOURCE / "examples")
    monkeypatch.chdir(tmp_path)
    for code in examples:
        exec(compile(code, "README.md", "exec"), {})
    assert (tmp_path / "noc_traffic.changed.json").read_text().count('"ReadBW": 1700') == 1
    assert '"not_colocated_nodes": ["fir_1"]' in (tmp_path / "placement.json").read_text()
    assert "design/kpe_array/out_beams<0>_INST KPE_SHIM_X1Y0/PL_M0\n" in capsys.readouterr().out
