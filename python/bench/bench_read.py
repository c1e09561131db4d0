#!/usr/bin/python3
"""Times tarvo.read against json.load, and against json.load plus jsonschema validation with
the same schema, on the large traffic specification and logical architecture that the C++
benchmarks generate (bench/traffic_bench.cpp, bench/logarch_bench.cpp), built here through the
package's own models and written by the library's writers.

    PYTHONPATH=build/default/python /usr/bin/python3 python/bench/bench_read.py [--runs N] [--no-jsonschema]
"""

import argparse
import json
import os
import pathlib
import tempfile
import time

import tarvo

SOURCE = pathlib.Path(__file__).resolve().parents[2]
SCHEMAS = {
    "traffic": SOURCE / "data/parts/zorvex/common/noc/schemas/traffic.json",
    "logical-arch": SOURCE / "data/parts/zorvex/common/tellura/LogicalArchSchema.json",
}


def traffic_document():
    """20,000 instances and 150,000 paths, by the recipe of bench/traffic_bench.cpp."""
    document = tarvo.new("traffic")
    spec = document.model
    spec.frequency = 1000
    spec.device_name = "bench_device"
    masters = []
    for i in range(12000):
        name = f"top/sub_{i % 97}/master_{i}"
        streaming = i % 5 == 0
        master = spec.add_instance(name, tarvo.AxiProt.AXI_STRM if streaming else tarvo.AxiProt.AXI_MM,
                                   tarvo.CompType.PL_IGU if streaming else tarvo.CompType.PS_IGU_0, [[name + "_noc"]])
        master.read_traffic_class = tarvo.TrafficClass(i % 4)
        master.read_outstanding = 8 + i % 56
        master.write_outstanding = 8 + i % 24
        if i % 3 == 0:
            master.read_rate_limiter = float(i % 16)
        if i % 7 == 0:
            master.add_remap(0x80000000 + i * 0x1000, 0x400000000, 0x1000)
        master.dest_id = i % 4096
        masters.append(master)
    slaves = []
    for i in range(8000):
        name = f"top/mem_{i % 31}/slave_{i}"
        controller = i % 50 == 0
        slave = spec.add_instance(name, tarvo.AxiProt.AXI_MM, tarvo.CompType.DDRC if controller else tarvo.CompType.PL_EGU,
                                  [[name + "_p0"], [name + "_p1"]])
        if controller:
            spec.add_port_type(slave, tarvo.PortType.PORT0)
            spec.add_port_type(slave, tarvo.PortType.PORT1)
            slave.ddr_interleave_size = 4096
            slave.add_memory_param("Speed", "4266")
        slave.add_sys_address(i << 24, 0x1000000)
        slave.dest_id = (i * 7) % 4096
        slaves.append(slave)
    for i in range(150000):
        path = spec.add_path(masters[i * 7919 % 12000], slaves[i * 104729 % 8000])
        path.phase = i % 3
        path.slave_port = tarvo.PortType.PORT0 if i % 2 == 0 else tarvo.PortType.PORT1
        path.read = tarvo.PerfSpec(bandwidth=100 + i % 4000, latency=300 + i % 700)
        path.write = tarvo.PerfSpec(bandwidth=50 + i % 2000, latency=400 + i % 500)
        path.read_avg_burst = 16 << (i % 5)
        path.write_avg_burst = 16 << (i % 4)
        if i % 4 == 0:
            path.write_order = tarvo.WriteOrder.RELAXED
        if i % 11 == 0:
            path.add_dest_id_range(i % 8, i % 8 + 2)
        if i % 50 == 0:
            path.set_read_in_phase("modes", "low", tarvo.PerfSpec(bandwidth=10, latency=300))
            path.set_write_in_phase("modes", "low", tarvo.PerfSpec(bandwidth=10, latency=400))
    return document


def logical_arch_document():
    """2,000 instances of 64 ports and 50,000 connections, by the recipe of bench/logarch_bench.cpp."""
    document = tarvo.new("logical-arch")
    arch = document.model
    arch.app_id, arch.schema, arch.device, arch.platform = "bench_app", "1.2", "zv1902", "zv1902_base"
    ports = []
    for i in range(2000):
        name = f"design/block{i // 50}/inst{i}"
        add = arch.add_kpe_instance if i % 10 == 0 else arch.add_noc_instance if i % 10 == 1 else arch.add_pl_instance
        instance = add(name)
        for p in range(64):
            port = arch.add_port(instance, f"port_{p}")
            index = len(ports)
            stream = index % 3 != 0
            port.type = tarvo.DataFlowType.STREAM if stream else tarvo.DataFlowType.MEM
            port.direction = tarvo.PortDirection.MASTER if index % 2 else tarvo.PortDirection.SLAVE
            port.data_width = 64 if index % 4 else 128
            if not stream:
                port.bus_width = 128
            port.param_index = index % 64
            port.clock_frequency = 500.0 + index % 7 * 12.5
            port.register_interface = index % 5 == 0
            port.annotations = [f"graph.node{index // 8}.p{index % 8}"]
            port.sdf_io_names = [f"io_{index}"]
            if index % 2:
                port.channel = f"ch{index}"
            ports.append(port)
    for c in range(50000):
        source = c * 2 % len(ports)
        destinations = [ports[(source + 1) % len(ports)]]
        if c % 4 == 0:
            destinations.append(ports[(source + 7919) % len(ports)])
        connection = arch.connect(f"design/net{c}", ports[source], destinations)
        connection.type = tarvo.DataFlowType.STREAM if c % 3 else tarvo.DataFlowType.MEM
        connection.direction = tarvo.ConnectionDirection(c % 8)
        if c % 3 == 0:
            connection.mem_mode = tarvo.MemMode.READ_WRITE
    return document


def best_of(runs, work):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        work()
        times.append(time.perf_counter() - start)
    return min(times)


def validate_with_jsonschema(path, schema):
    import jsonschema

    with open(path, encoding="utf-8") as text:
        jsonschema.Draft4Validator(schema).validate(json.load(text))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--runs", type=int, default=3, help="runs of each measurement; the best counts")
    parser.add_argument("--no-jsonschema", action="store_true", help="skip the (slow) jsonschema validation")
    arguments = parser.parse_args()

    with tempfile.TemporaryDirectory() as directory:
        for kind, make in (("traffic", traffic_document), ("logical-arch", logical_arch_document)):
            path = pathlib.Path(directory) / f"{kind}.json"
            make().write(path)
            megabytes = os.path.getsize(path) / 1e6
            with open(SCHEMAS[kind], encoding="utf-8") as text:
                schema = json.load(text)

            def load():
                with open(path, encoding="utf-8") as text:
                    json.load(text)

            rows = [
                ("tarvo.read (kind given)", best_of(arguments.runs, lambda: tarvo.read(path, kind=kind))),
                ("tarvo.read (kind detected)", best_of(arguments.runs, lambda: tarvo.read(path))),
                ("json.load", best_of(arguments.runs, load)),
            ]
            if not arguments.no_jsonschema:
                rows.append(("json.load + jsonschema",
                             best_of(1, lambda: validate_with_jsonschema(path, schema))))
            print(f"{kind}: {megabytes:.1f} MB")
            reference = rows[2][1]
            for label, seconds in rows:
                print(f"  {label:28} {seconds * 1000:9.0f} ms {megabytes / seconds:8.1f} MB/s"
                      f"  {seconds / reference:5.2f} x json.load")


if __name__ == "__main__":
    main()
