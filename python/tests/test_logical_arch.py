import gc

import pytest
import tarvo


def test_instances_ports_and_connections_of_the_example(examples):
    arch = tarvo.read(examples / "logical_arch.json", kind="logical-arch").model
    assert (arch.app_id, arch.device, arch.schema, arch.platform) == ("beamformer_v2", "zv1902", "1.2", "zv1902_base")
    assert [(type(i).__name__, i.name, i.type) for i in arch.instances] == [
        ("PlInstance", "design/adc_dma", tarvo.InstanceType.PLIP),
        ("PlInstance", "design/window", tarvo.InstanceType.PLIP),
        ("KpeInstance", "design/kpe_array", tarvo.InstanceType.KPEIP),
        ("NocInstance", "design/noc", tarvo.InstanceType.NOCIP),
    ]
    kpe = arch.instance("design/kpe_array")
    assert (kpe.vlnv_name, kpe.annotation, kpe.logical_device_json) == (
        "tarvo:kpe:array:1.0", "beamformer graph", "kpe_array.json")
    samples = kpe.port("in_samples")
    assert (samples.type, samples.direction, samples.data_width, samples.param_index, samples.clock_frequency,
            samples.annotations, samples.sdf_io_names, samples.channel) == (
        tarvo.DataFlowType.STREAM, tarvo.PortDirection.SLAVE, 64, 0, 500.0, ["graph.in_samples"], ["in_samples"],
        "in_samples_ch")
    assert samples.instance is kpe
    assert kpe.port("results").traced is True and kpe.port("out_beams").register_interface is True
    flows = [(c.name, c.source.instance.name + "." + c.source.name,
              [d.instance.name + "." + d.name for d in c.destinations], c.direction) for c in arch.connections]
    assert flows[:2] == [
        ("design/samples", "design/adc_dma.to_kpe", ["design/kpe_array.in_samples"],
         tarvo.ConnectionDirection.PL_TO_KPE),
        ("design/beams", "design/kpe_array.out_beams", ["design/adc_dma.from_kpe"],
         tarvo.ConnectionDirection.KPE_TO_PL),
    ]
    assert samples.connection is arch.connections[0]
    assert len(arch.connections) == 9 and arch.instance("nope") is None


def test_building_and_changing_a_model():
    arch = tarvo.LogicalArch()
    pl = arch.add_pl_instance("pl")
    kpe = arch.add_kpe_instance("kpe")
    out = arch.add_port(pl, "out")
    into = arch.add_port(kpe, "in")
    out.type = tarvo.DataFlowType.STREAM
    into.annotations = ["graph.in"]
    into.add_channel_full_name("kpe/in<0>_INST")
    connection = arch.connect("link", out, [into])
    assert (connection.source, connection.destinations, into.connection) == (out, [into], connection)
    assert into.annotations == ["graph.in"] and into.channel_full_names == ["kpe/in<0>_INST"]
    assert arch.add_pl_instance("pl") is None

    with pytest.raises(ValueError, match="pl has a port out"):
        arch.add_port(pl, "out")
    with pytest.raises(ValueError, match="the model has a connection link"):
        arch.connect("link", out, [into])
    stranger = tarvo.LogicalArch()
    foreign = stranger.add_port(stranger.add_noc_instance("noc"), "p")
    with pytest.raises(ValueError, match="destinations p is not a port of this model"):
        arch.connect("other", out, [foreign])
    with pytest.raises(TypeError, match="source must be a LogicalPort, not None"):
        arch.connect("other", None, [into])
    with pytest.raises(TypeError, match="instance must be a LogicalInstance, not None"):
        arch.add_port(None, "x")
    with pytest.raises(TypeError):
        out.type = "stream"


def test_ports_outlive_their_model(examples):
    port = tarvo.read(examples / "logical_arch.json", kind="logical-arch").model.instances[2].ports[0]
    gc.collect()
    assert (port.name, port.instance.name, port.connection.name) == ("in_samples", "design/kpe_array",
                                                                     "design/samples")
