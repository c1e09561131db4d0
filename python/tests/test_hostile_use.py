"""Whatever a script does through the package ends in a Python exception, never a crash."""

import gc

import tarvo

ARGUMENTS = [(), (None,), (5,), (-1,), (2**70,), ("x",), ("",), (1.5,), ([None],), (object(),), (None, None),
             ("x", None), ("x", 5), (None, None, None), ("x", "y", [], False)]
VALUES = [None, 5, -1, 2**70, 1.5, "x", [None], ["x"], object()]


def poke(target):
    """Calls every public method with wrong and odd arguments and assigns odd values to every property."""
    for name in dir(target):
        if name.startswith("_") and name not in ("__getitem__", "__setitem__", "__delitem__", "__contains__"):
            continue
        try:
            attribute = getattr(target, name)
        except Exception:
            continue
        if callable(attribute):
            for arguments in ARGUMENTS:
                try:
                    attribute(*arguments)
                except Exception:
                    pass
        else:
            for value in VALUES:
                try:
                    setattr(target, name, value)
                except Exception:
                    pass


def children(model):
    """The objects a script reaches from a model, one level down."""
    found = []
    if model is None:
        return found
    for name in ("instances", "paths", "connections"):
        found += list(getattr(model, name, []))
    for item in list(found):
        for name in ("nets", "ports", "destinations"):
            found += list(getattr(item, name, []))
    return found


def test_every_model_survives_wrong_and_odd_use(examples, tmp_path, monkeypatch):
    # Document.write("x") and the like land here.
    monkeypatch.chdir(tmp_path)
    for file, inputs in [("noc_traffic.json", {}), ("logical_arch.json", {}), ("project_meta.json", {}),
                         ("constraints.json", {}), ("noc_solution.json", {"traffic": "noc_traffic.json"}),
                         ("noc_constraints.json", {"traffic": "noc_traffic.json"}),
                         ("compiler_solution.json", {"arch": "logical_arch.json", "traffic": "kpe_array_traffic.json"})]:
        document = tarvo.read(examples / file, **{option: examples / name for option, name in inputs.items()})
        model = document.model
        held = children(model) + children(document.traffic) + children(document.arch)
        held += list(model) if document.kind == "constraints" else []
        held += [item for entry in getattr(model, "routes", []) + getattr(model, "placements", []) for item in entry]
        for target in [document, model] + held:
            poke(target)
        del document, model
        gc.collect()
        # What was held stays usable (or refuses to be used) after its document is gone.
        for target in held:
            poke(target)
    for fresh in (tarvo.TrafficSpec(), tarvo.LogicalArch(), tarvo.Metadata(), tarvo.ConstraintStore()):
        poke(fresh)
        for child in children(fresh):
            poke(child)
