import gc

import pytest
import tarvo


def test_constraints_of_the_example(examples):
    store = tarvo.read(examples / "constraints.json", kind="constraints").model
    assert len(store) == 19
    first = [(c.kind, c.name, c.object_name, c.object_type) for c in store][:4]
    assert first == [
        ("Tile", "kpe.tile", "fir_0", tarvo.ObjectType.NODE),
        ("ColocatedNodes", "kpe.colocated_nodes", "fir_0", tarvo.ObjectType.NODE),
        ("RelativeNodes", "kpe.relative_nodes", "fir_0", tarvo.ObjectType.NODE),
        ("Attr", "KPE.MARGIN", "fir_0", tarvo.ObjectType.NODE),
    ]
    tile = next(iter(store))
    assert tile.fields == {
        "tile": {"column": 3, "row": 1, "tile_type": "core"},
        "tile_src_info": {"file": "design/placement.cst", "line": 12, "column": 5},
    }
    assert tile.source == ("design/placement.cst", 12, 5)
    groups = [(c.kind, c.object_name) for c in store if c.object_type == tarvo.ObjectType.GLOBAL]
    assert groups == [("AreaGroup", "filters"), ("InstGroup", "stamps"), ("IsomorphicGraphGroup", "graphs")]
    assert [c.fields for c in store.constraints("fir_2.out")] == [
        {"stream_channel": {"offset": 1, "direction": "East", "channel": 3}},
        {"exclusive_colocated_ports": ["fir_3.out"]},
        {"fifo_locations": ["stream_a"]},
    ]


def test_set_operations_build_a_store():
    store = tarvo.ConstraintStore()
    store.set_tile("k0", 2, 1)
    store.set_shim("k0.in", 6, 1)
    store.set_mem("buf", tarvo.Address(column=3, row=0, bank_id=1, offset=64))
    store.set_attr(tarvo.ObjectType.NODE, "k0", "margin", 2)
    store.set_attr(tarvo.ObjectType.NET, "n0", "fifo_depth", True)
    store.set_colocated_nodes("k0", ["k1", "k2"], not_colocated=True)
    store.set_inst_group("stamps", ["k0", "k1"], isomorphic=True)
    store.set_area_group("area", ["k0"], [(tarvo.TileType.TILE, 1, 0, 3, 2)], soft=True)
    assert [(c.kind, c.object_name, c.fields) for c in store] == [
        ("Tile", "k0", {"tile": {"column": 2, "row": 1, "tile_type": "core"}}),
        ("Shim", "k0.in", {"shim": {"column": 6, "channel": 1}}),
        ("Mem", "buf", {"mem": [{"column": 3, "row": 0, "bankId": 1, "offset": 64}]}),
        ("Attr", "k0", {"margin": 2}),
        ("Attr", "n0", {"fifo_depth": True}),
        ("ColocatedNodes", "k0", {"not_colocated_nodes": ["k1", "k2"]}),
        ("InstGroup", "stamps", {"instGroup": {"name": "stamps", "isisomorphic": True, "nodeGroup": ["k0", "k1"]}}),
        ("AreaGroup", "area", {"areaGroup": {"name": "area", "issoft": True, "nodeGroup": ["k0"],
                                             "tileGroup": ["(1,0):(3,2)"]}}),
    ]
    # Setting again changes the constraint in place.
    store.set_tile("k0", 4, 2)
    assert len(store) == 8 and next(iter(store)).fields["tile"]["column"] == 4
    with pytest.raises(TypeError, match="value must be bool, int, float or str, not list"):
        store.set_attr(tarvo.ObjectType.NODE, "k0", "margin", [1])
    with pytest.raises(TypeError, match="object_name: str"):
        store.set_tile(None, 1, 1)


def test_removed_constraints_refuse_use(examples):
    document = tarvo.read(examples / "constraints.json", kind="constraints")
    store = document.model
    assert document.model is store
    tile, colocated = list(store)[:2]
    store.unload(tile)
    assert len(store) == 18
    with pytest.raises(ValueError, match="no longer in its store"):
        tile.fields
    # Every removal starts a new generation: constraints taken before it are refused too.
    with pytest.raises(ValueError, match="no longer in its store"):
        colocated.kind
    held = list(store)
    store.clear()
    assert len(store) == 0 and list(store) == []
    for constraint in held:
        with pytest.raises(ValueError):
            str(constraint)
    with pytest.raises(ValueError):
        store.unload(held[0])


def test_store_outlives_its_document(examples):
    store = tarvo.read(examples / "constraints.json", kind="constraints").model
    gc.collect()
    assert [c.object_name for c in store.constraints("fir_1")] == ["fir_1", "fir_1"]
