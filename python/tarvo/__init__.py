"""Every document kind of the tarvo document library from Python.

``tarvo.read(path)`` reads a document into the library's model, checked against its schema;
``Document.model`` is that model, ``Document.dumps()`` and ``Document.write(path)`` write it
back through the library's writer.
"""

import collections.abc as _abc
import os as _os
import warnings as _warnings

from . import _tarvo
from ._errors import DocumentError, DocumentWarning
from ._tarvo import (  # noqa: F401  (the package's public names)
    Address,
    AddrType,
    AxiProt,
    Component,
    CompRole,
    CompType,
    ConnectionDirection,
    Constraint,
    ConstraintStore,
    DataFlowType,
    InstanceType,
    IPType,
    KpeInstance,
    Link,
    LogicalArch,
    LogicalConnection,
    LogicalInstance,
    LogicalPort,
    MemMode,
    Message,
    Metadata,
    NetType,
    NocInstance,
    NocPlacement,
    NocSolution,
    ObjectType,
    PerfSpec,
    PlInstance,
    PortDirection,
    PortType,
    Route,
    ShimSolution,
    Site,
    SolutionState,
    TileType,
    TrafficClass,
    TrafficInstance,
    TrafficNet,
    TrafficPath,
    TrafficSpec,
    WriteOrder,
)

_abc.MutableMapping.register(Metadata)


def _text_argument(value, name, function):
    """The path or text a script passed, as str; TypeError names the parameter otherwise."""
    if isinstance(value, _os.PathLike) and name == "path":
        value = _os.fspath(value)
    if not isinstance(value, str):
        raise TypeError(f"{function}() argument '{name}' must be str"
                        + (" or os.PathLike" if name == "path" else "")
                        + f", not {type(value).__name__}")
    return value


class Document:
    """A document read into the library's model.

    ``kind`` is the document kind (as ``tarvo-docs --kind`` names it), ``model`` the model,
    ``messages`` the library's numbered messages sent while it was read (each also issued as
    a ``tarvo.DocumentWarning``).
    """

    def __init__(self, loaded):
        self._loaded = loaded
        self._model = None
        self._messages = loaded.messages

    @property
    def kind(self):
        return self._loaded.kind

    @property
    def file(self):
        return self._loaded.file

    @property
    def messages(self):
        return self._messages

    @property
    def model(self):
        # One model object per document: a store handed out twice would not see the other's
        # removals.
        if self._model is None:
            self._model = self._loaded.model()
        return self._model

    def __repr__(self):
        return f"<tarvo.Document {self.kind} {self.file!r}>"


def _issue(document):
    for message in document.messages:
        _warnings.warn(DocumentWarning(message), stacklevel=3)
    return document


def read(path, kind=None):
    """Reads the document at ``path`` (str or os.PathLike) as a document of ``kind``."""
    path = _text_argument(path, "path", "read")
    kind = _text_argument(kind, "kind", "read")
    return _issue(Document(_tarvo.read_file(path, kind)))


def loads(text, kind, name="<string>"):
    """Reads a document from a string; ``name`` names it in messages."""
    text = _text_argument(text, "text", "loads")
    kind = _text_argument(kind, "kind", "loads")
    name = _text_argument(name, "name", "loads")
    return _issue(Document(_tarvo.read_text(text, kind, name)))
