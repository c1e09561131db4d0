import pytest
import tarvo


def test_failures_of_a_read_carry_the_library_message(examples, tmp_path):
    missing = tmp_path / "missing.json"
    with pytest.raises(tarvo.DocumentError) as caught:
        tarvo.read(missing, kind="traffic")
    error = caught.value
    assert (error.id, error.file) == ("8-100", str(missing))
    assert str(error) == (f"ERROR: [tarvo 8-100] Cannot read JSON file '{missing}': it does not exist, is not a "
                          "regular file, or cannot be opened. Check the path and its permissions.")
    assert error.text == str(error)[len("ERROR: [tarvo 8-100] "):]

    with pytest.raises(tarvo.DocumentError) as caught:
        tarvo.loads('{"LogicalInstances": [}', "traffic", name="t.json")
    assert (caught.value.id, caught.value.file) == ("8-101", "t.json")
    assert caught.value.text == "Failed to parse JSON file 't.json': line 1, column 23: Invalid value."

    with pytest.raises(tarvo.DocumentError, match="^'m.json' is not JSON: a NUL byte at offset 16 follows the document.$"):
        tarvo.loads('{"MetaData": []}\0{"MetaData": 5}', name="m.json")

    with pytest.raises(tarvo.DocumentError) as caught:
        tarvo.read(examples / "project_meta.json", kind="traffic")
    assert caught.value.id == "8-101"
    assert isinstance(caught.value, Exception)


def test_wrong_types_name_the_parameter(examples):
    with pytest.raises(TypeError, match="read\\(\\) argument 'path' must be str or os.PathLike, not int"):
        tarvo.read(5, kind="traffic")
    with pytest.raises(TypeError, match="loads\\(\\) argument 'text' must be str, not NoneType"):
        tarvo.loads(None, "traffic")
    with pytest.raises(TypeError, match="loads\\(\\) argument 'kind' must be str or None, not bytes"):
        tarvo.loads("{}", b"traffic")
    with pytest.raises(TypeError, match="read\\(\\) argument 'traffic' must be str or os.PathLike or None, not int"):
        tarvo.read(examples / "noc_solution.json", traffic=3)
    with pytest.raises(TypeError, match="write\\(\\) argument 'path' must be str or os.PathLike, not NoneType"):
        tarvo.read(examples / "project_meta.json").write(None)
    with pytest.raises(ValueError, match="unknown document kind 'trafic'"):
        tarvo.read(examples / "noc_traffic.json", kind="trafic")


def test_numbered_messages_reach_warnings_and_the_document():
    text = '{"NodeConstraints": {"": {"margin": 2}, "a": {"margin": 3}}}'
    with pytest.warns(tarvo.DocumentWarning) as issued:
        document = tarvo.loads(text, "constraints", name="c.json")
    line = ("CRITICAL WARNING: [tarvo 75-407] Constraint file names the node '', which is not in the design; "
            "its constraints are ignored.")
    assert [str(w.message) for w in issued] == [line]
    assert [(m.severity, m.id, str(m)) for m in document.messages] == [("CRITICAL WARNING", "75-407", line)]
    assert issued[0].message.message is document.messages[0]
    assert [c.object_name for c in document.model] == ["a"]
