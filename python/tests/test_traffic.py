import gc

import pytest
import tarvo


def test_instances_and_paths_of_the_example(examples):
    spec = tarvo.read(examples / "noc_traffic.json", kind="traffic").model
    assert [(i.name, i.is_master, i.comp_type, i.protocol, i.dest_id) for i in spec.instances] == [
        ("top/cpu/m_axi_0", True, tarvo.CompType.PS_IGU_0, tarvo.AxiProt.AXI_MM, 12),
        ("top/rp_video/dma/m_axi", True, tarvo.CompType.PL_IGU, tarvo.AxiProt.AXI_MM, 13),
        ("top/kpe/noc_out_0", True, tarvo.CompType.KPE_NOC_IGU, tarvo.AxiProt.AXI_STRM, 14),
        ("top/ddr_mc", False, tarvo.CompType.DDRC, tarvo.AxiProt.AXI_MM, 32),
        ("top/pl_sink/s_axis", False, tarvo.CompType.PL_EGU, tarvo.AxiProt.AXI_STRM, 33),
    ]
    cpu = spec.instance("top/cpu/m_axi_0")
    assert (cpu.read_traffic_class, cpu.write_traffic_class) == (tarvo.TrafficClass.LL, tarvo.TrafficClass.BE)
    assert (cpu.read_outstanding, cpu.write_outstanding) == (32, 16)
    assert cpu.remaps == [(0x80000000, 0x400000000, 0x10000000)]
    assert cpu.external_conns == [["cpu_noc_m0"]]
    ddr = spec.instance("top/ddr_mc")
    assert ddr.port_types == [tarvo.PortType.PORT0, tarvo.PortType.PORT1]
    assert ddr.sys_addresses == [(0x0, 0x80000000), (0x800000000, 0x180000000)]
    assert ddr.memory_params == {"DataWidth": "64", "Speed": "4266"}
    assert (ddr.ddr_interleave_size, ddr.ddr_interleave_sel) == (4096, 1)
    assert spec.instance("no/such/instance") is None

    # The same C++ instance is the same Python object, wherever it is reached from.
    assert spec.paths[0].source is cpu
    routes = [(p.source.name, p.destination.name, p.read.bandwidth, p.write.bandwidth) for p in spec.paths]
    assert routes == [
        ("top/cpu/m_axi_0", "top/ddr_mc", 1600, 800),
        ("top/rp_video/dma/m_axi", "top/ddr_mc", 3200, 3200),
        ("top/kpe/noc_out_0", "top/pl_sink/s_axis", 0, 2000),
    ]
    # A memory-mapped path has four nets, a streaming one a single write net.
    assert [[n.type for n in p.nets] for p in spec.paths][1:] == [
        [tarvo.NetType.READ, tarvo.NetType.WRITE, tarvo.NetType.READ_REQ, tarvo.NetType.WRITE_RESP],
        [tarvo.NetType.WRITE],
    ]
    assert spec.paths[2].nets[0].path is spec.paths[2]
    assert (spec.frequency, spec.device_name, spec.rcf_paths) == (1000, "zorvex_d80", ["top/rp_video/"])
    assert spec.phase_groups == {"modes": {"Phase_Default", "hd", "uhd"}}


def test_bandwidth_per_master_and_changes(examples):
    spec = tarvo.read(examples / "noc_traffic.json", kind="traffic").model
    per_master = {}
    for path in spec.paths:
        per_master[path.source.name] = per_master.get(path.source.name, 0) + path.read.bandwidth + path.write.bandwidth
    assert per_master == {"top/cpu/m_axi_0": 2400, "top/rp_video/dma/m_axi": 6400, "top/kpe/noc_out_0": 2000}

    path = spec.paths[0]
    # A requirement is a value: changing it means assigning a new one.
    with pytest.raises(AttributeError):
        path.read.bandwidth = 5
    # A refused value names the property.
    with pytest.raises(TypeError, match=r"\(self: tarvo\._tarvo\.TrafficPath, read: tarvo\._tarvo\.PerfSpec\)"):
        path.read = 5
    with pytest.raises(TypeError, match=r"phase: int"):
        path.phase = "hd"
    path.read = tarvo.PerfSpec(tarvo.TrafficClass.LL, 1700, 250)
    assert (path.read.traffic_class, path.read.bandwidth, path.read.latency) == (tarvo.TrafficClass.LL, 1700, 250)
    path.set_write_in_phase("modes", "turbo", tarvo.PerfSpec(bandwidth=900, latency=100))
    assert path.write_in_phase("turbo") == tarvo.PerfSpec(bandwidth=900, latency=100)
    assert path.write_in_phase("unnamed") == path.write
    assert spec.phase_groups["modes"] == {"Phase_Default", "hd", "turbo", "uhd"}

    cpu = path.source
    cpu.dest_id = None
    assert cpu.dest_id is None
    cpu.dest_id = 65535
    assert cpu.dest_id == 65535
    with pytest.raises(TypeError):
        cpu.dest_id = 65536
    spec.frequency = 1200
    assert (spec.frequency, spec.user_set_frequency) == (1200, True)


def test_building_a_specification():
    spec = tarvo.TrafficSpec()
    master = spec.add_instance("m", tarvo.AxiProt.AXI_MM, tarvo.CompType.PL_IGU, [["conn_a"]])
    slave = spec.add_instance("s", tarvo.AxiProt.AXI_MM, tarvo.CompType.DDRC)
    path = spec.add_path(master, slave)
    assert (path.index, path.source, path.destination, len(path.nets)) == (0, master, slave, 4)
    assert (master.is_master, slave.is_slave) == (True, True)

    other = tarvo.TrafficSpec()
    stranger = other.add_instance("x", tarvo.AxiProt.AXI_STRM, tarvo.CompType.PL_IGU)
    with pytest.raises(ValueError, match="x is not an instance of this specification"):
        spec.add_path(stranger, slave)
    with pytest.raises(TypeError, match="destination must be a TrafficInstance"):
        spec.add_path(master, None)
    with pytest.raises(TypeError, match="name: str"):
        spec.add_instance(5, tarvo.AxiProt.AXI_MM, tarvo.CompType.PL_IGU)
    with pytest.raises(TypeError):
        spec.add_instance("y", "AXI_MM", tarvo.CompType.PL_IGU)
    assert len(spec.instances) == 2


def test_objects_outlive_their_document(examples):
    document = tarvo.read(examples / "noc_traffic.json", kind="traffic")
    path = document.model.paths[1]
    nets = path.nets
    del document
    gc.collect()
    # The path and its nets keep the traffic specification, and the document that owns it, alive.
    assert path.source.name == "top/rp_video/dma/m_axi"
    assert [n.path.index for n in nets] == [1, 1, 1, 1]
    instance = tarvo.read(examples / "noc_traffic.json", kind="traffic").model.instances[3]
    gc.collect()
    assert instance.memory_params["Speed"] == "4266"
