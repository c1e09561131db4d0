import collections.abc

import pytest
import tarvo


def test_properties_of_the_example_with_their_types(examples):
    meta = tarvo.read(examples / "project_meta.json", kind="metadata").model
    assert isinstance(meta, collections.abc.MutableMapping)
    assert len(meta) == 6
    assert list(meta) == ["KPE_PL_INTF_ID", "KPE_PL_INTF_ID_STR", "project.clock.mhz", "project.kernels",
                          "project.noc.enabled", "project.trace.bytes"]
    values = {name: meta[name] for name in meta}
    assert values == {
        "KPE_PL_INTF_ID": 305419896,
        "KPE_PL_INTF_ID_STR": "kpe0_pl_intf",
        "project.clock.mhz": 1250.0,
        "project.kernels": ["fir_stage", "fft_1k", "beamformer"],
        "project.noc.enabled": True,
        "project.trace.bytes": 8589934592,
    }
    assert [type(values[name]) for name in meta] == [int, str, float, list, bool, int]
    assert meta.pl_interface_id == 305419896
    assert "project.kernels" in meta and 5 not in meta
    assert meta.get("missing", "fallback") == "fallback"


def test_assignment_follows_the_python_type():
    meta = tarvo.Metadata()
    meta["flag"] = True
    meta["small"] = 2**31 - 1
    meta["negative"] = -2**31
    meta["large"] = 2**31
    meta["ratio"] = 0.5
    meta["kernels"] = ("a", "b")
    assert [(name, meta[name], type(meta[name])) for name in meta] == [
        ("flag", True, bool),
        ("kernels", ["a", "b"], list),
        ("large", 2**31, int),
        ("negative", -2**31, int),
        ("ratio", 0.5, float),
        ("small", 2**31 - 1, int),
    ]
    # A number below an integer's range has no property type.
    with pytest.raises(ValueError, match="does not fit"):
        meta["huge"] = -2**31 - 1
    with pytest.raises(ValueError, match="does not fit"):
        meta["huge"] = 2**64
    with pytest.raises(TypeError, match="value of 'list' must be a list of str, not one holding int"):
        meta["list"] = ["a", 1]
    with pytest.raises(TypeError, match="must be bool, int, float, str or a list of str, not NoneType"):
        meta["none"] = None
    with pytest.raises(TypeError):
        meta[3] = "three"
    assert "huge" not in meta and "list" not in meta

    meta["flag"] = "now a string"
    assert meta["flag"] == "now a string"
    del meta["flag"]
    with pytest.raises(KeyError):
        meta["flag"]
    with pytest.raises(KeyError):
        del meta["flag"]
    # Removing while iterating walks the names as they were.
    for name in meta:
        del meta[name]
    assert len(meta) == 0
