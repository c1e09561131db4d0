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


def test_changes_reach_the_written_text(examples, tmp_path):
    traffic = tarvo.read(examples / "noc_traffic.json")
    traffic.model.paths[0].read = tarvo.PerfSpec(tarvo.TrafficClass.LL, 1700, 250)
    traffic.model.instance("top/ddr_mc").dest_id = None
    original = convert(examples / "noc_traffic.json", tmp_path).decode()
    expected = original.replace('"ReadBW": 1600,\n      "ReadLatency": 300,',
                                '"ReadBW": 1700,\n      "ReadLatency": 250,', 1)
    expected = expected.replace('"Speed": "4266"\n      },\n      "DestId": 32,\n', '"Speed": "4266"\n      },\n', 1)
    assert expected.count("1700") == 1 and '"DestId": 32' not in expected
    assert traffic.dumps() == expected

    meta = tarvo.read(examples / "project_meta.json")
    del meta.model["project.kernels"]
    meta.model["project.noc.enabled"] = 0
    text = meta.dumps()
    assert '"project.kernels"' not in text
    assert '"name": "project.noc.enabled",\n      "value": 0\n' in text


def test_documents_built_from_scratch():
    meta = tarvo.new("metadata")
    meta.model["project.name"] = "demo"
    meta.model["project.big"] = 2**40
    meta.model["project.list"] = ["a", "b"]
    assert meta.dumps() == """{
  "MetaData": [
    {
      "name": "project.big",
      "value": 1099511627776
    },
    {
      "name": "project.list",
      "value": [
        "a",
        "b"
      ]
    },
    {
      "name": "project.name",
      "value": "demo"
    }
  ]
}"""
    constraints = tarvo.new("constraints")
    store = constraints.model
    store.set_tile("k0", 2, 1)
    store.set_attr(tarvo.ObjectType.NET, "n0", "fifo_depth", 4)
    store.set_inst_group("stamps", ["k0", "k1"], isomorphic=True)
    assert constraints.dumps() == """{
  "NodeConstraints": {
    "k0": {
      "tile": {
        "column": 2,
        "row": 1,
        "tile_type": "core"
      }
    }
  },
  "NetConstraints": {
    "n0": {
      "fifo_depth": 4
    }
  },
  "GlobalConstraints": {
    "instGroup": {
      "name": "stamps",
      "isisomorphic": true,
      "nodeGroup": ["k0", "k1"]
    }
  }
}"""
    with pytest.raises(tarvo.DocumentError, match="the logical architecture is empty; there is nothing to write"):
        tarvo.new("logical-arch").dumps()
    with pytest.raises(ValueError, match="a new document is one of metadata, constraints, logical-arch or traffic"):
        tarvo.new("noc-solution")


def test_solutions_walk_to_their_traffic_and_device(examples):
    document = tarvo.read(examples / "noc_solution.json", traffic=examples / "noc_traffic.json")
    solution, spec = document.model, document.traffic
    assert solution.state == tarvo.SolutionState.OPTIMAL
    net, route = solution.routes[-1]
    assert (net.path.source.name, net.type, route.vc, route.achieved_bandwidth, route.locked) == (
        "top/kpe/noc_out_0", tarvo.NetType.WRITE, 0, 2000, True)
    assert [(link.source.name, link.source_port, link.destination.name, link.destination_port)
            for link in route.links][:2] == [("NOC_IN_KPE_0", "P", "NOC_SW_X2Y0", "L0"),
                                             ("NOC_SW_X2Y0", "W", "NOC_SW_X1Y0", "E")]
    assert solution.route(net) is route
    placed = {i.name: (solution.component_of(i).name, solution.dest_id(solution.component_of(i)))
              for i in spec.instances}
    assert placed == {"top/cpu/m_axi_0": ("NOC_IN_PS_0", 12), "top/rp_video/dma/m_axi": ("NOC_IN_PL_1", 13),
                      "top/kpe/noc_out_0": ("NOC_IN_KPE_0", 14), "top/ddr_mc": ("NOC_MC_0", None),
                      "top/pl_sink/s_axis": ("NOC_OUT_PL_0", 33)}
    assert [(solution.is_locked(p), solution.read_achieved(p), solution.write_achieved(p)) for p in spec.paths] == [
        (False, (8, 1600), (8, 800)), (False, (8, 3000), (8, 3100)), (True, None, (6, 2000))]
    del document, solution, spec
    # A link kept alone still reaches the device that owns it.
    assert route.links[0].destination.name == "NOC_SW_X2Y0"

    placement = tarvo.read(examples / "noc_constraints.json", traffic=examples / "noc_traffic.json")
    assert [(i.name, [c.name for c in components], soft) for i, components, soft in placement.model.placements][:2] == [
        ("top/cpu/m_axi_0", ["NOC_IN_PS_0"], False), ("top/rp_video/dma/m_axi", ["NOC_IN_PL_0", "NOC_IN_PL_1"], True)]

    compiler = tarvo.read(examples / "compiler_solution.json", arch=examples / "logical_arch.json",
                          traffic=examples / "kpe_array_traffic.json")
    sites = {instance.name: site.name for instance, site in compiler.model.placements}
    assert sites["design/kpe_array/out_beams<0>_INST"] == "KPE_SHIM_X1Y0/PL_M0"
    assert compiler.arch.instance("design/kpe_array").port("out_beams").channel_full_names == [
        "design/kpe_array/out_beams<0>_INST", "design/kpe_array/out_beams<1>_INST"]
    first, site = compiler.model.placements[0]
    assert compiler.model.instance_at(site) is first and compiler.model.site_of(first) == site

    unbound = tarvo.read(examples / "noc_solution.json")
    assert (unbound.kind, unbound.model, unbound.traffic) == ("noc-solution", None, None)
    with pytest.raises(tarvo.DocumentError, match="converted through their model; give --traffic FILE"):
        unbound.dumps()


def test_write_goes_through_the_programs_output_path(examples, tmp_path):
    import gzip

    document = tarvo.read(examples / "noc_traffic.json.gz")
    document.write(tmp_path / "out.json.gz")
    assert gzip.decompress((tmp_path / "out.json.gz").read_bytes()).decode() == document.dumps()
    # A write that fails leaves the target as it was.
    target = tmp_path / "kept.json"
    target.write_text("before")
    with pytest.raises(tarvo.DocumentError):
        tarvo.read(examples / "noc_solution.json").write(target)
    with pytest.raises(tarvo.DocumentError):
        document.write(tmp_path / "no" / "such" / "directory.json")
    assert target.read_text() == "before"
    assert sorted(p.name for p in tmp_path.iterdir()) == ["kept.json", "out.json.gz"]
