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
    Diagnostic,
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


def _text_argument(value, name, function, path=False, optional=False):
    """The text or path a script passed, as str; TypeError names the parameter otherwise."""
    if value is None and optional:
        return None
    if path and isinstance(value, _os.PathLike):
        value = _os.fspath(value)
    if not isinstance(value, str):
        expected = "str or os.PathLike" if path else "str"
        raise TypeError(f"{function}() argument '{name}' must be {expected}"
                        + (" or None" if optional else "") + f", not {type(value).__name__}")
    return value


def _options(function, traffic, arch, device, prefix):
    """The options of tarvo-docs that the reader and writer of a kind take."""
    given = {"--traffic": _text_argument(traffic, "traffic", function, path=True, optional=True),
             "--arch": _text_argument(arch, "arch", function, path=True, optional=True),
             "--device": _text_argument(device, "device", function, path=True, optional=True),
             "--prefix": _text_argument(prefix, "prefix", function, optional=True)}
    return {option: value for option, value in given.items() if value is not None}


class Document:
    """A document read into the library's model, as ``tarvo-docs`` reads it.

    ``kind`` is the document kind (the names of ``tarvo-docs --kind``), ``model`` the model
    (None for a NoC document read without its traffic specification), ``messages`` the
    library's numbered messages sent while it was read, each also issued as a
    ``tarvo.DocumentWarning``. ``dumps()`` and ``write(path)`` give the bytes that
    ``tarvo-docs convert`` writes.
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
        """The file it was read from, or the name given to its text."""
        return self._loaded.name

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

    @property
    def traffic(self):
        """The traffic specification a NoC or compiler solution was read against, or None."""
        return self._loaded.traffic()

    @property
    def arch(self):
        """The logical architecture a compiler solution was read against, or None."""
        return self._loaded.arch()

    def dumps(self):
        """The text that ``tarvo-docs convert`` writes for this document."""
        return self._loaded.dumps()

    def write(self, path):
        """Writes the document to ``path`` as ``tarvo-docs convert -o path`` does."""
        self._loaded.write(_text_argument(path, "path", "write", path=True))

    def __repr__(self):
        return f"<tarvo.Document {self.kind} {self.file!r}>"


def _issue(document):
    for message in document.messages:
        _warnings.warn(DocumentWarning(message), stacklevel=3)
    return document


def read(path, kind=None, traffic=None, arch=None, device=None, prefix=None):
    """Reads the document at ``path`` (str or os.PathLike).

    ``kind`` is detected from the content unless given; ``traffic``, ``arch``, ``device`` and
    ``prefix`` are the documents and options that ``tarvo-docs`` takes for NoC and compiler
    solutions.
    """
    path = _text_argument(path, "path", "read", path=True)
    kind = _text_argument(kind, "kind", "read", optional=True)
    options = _options("read", traffic, arch, device, prefix)
    return _issue(Document(_tarvo.read_file(path, kind or "", options)))


def loads(text, kind=None, traffic=None, arch=None, device=None, prefix=None, name="<string>"):
    """Reads a document from a string; ``name`` names it in messages."""
    text = _text_argument(text, "text", "loads")
    kind = _text_argument(kind, "kind", "loads", optional=True)
    name = _text_argument(name, "name", "loads")
    options = _options("loads", traffic, arch, device, prefix)
    return _issue(Document(_tarvo.read_text(text, name, kind or "", options)))


def check(path, kind=None, strict=False):
    """What ``tarvo-docs check`` finds in the document at ``path``: a list of ``tarvo.Diagnostic``
    with ``file``, ``line``, ``column`` (None where no place is known), ``severity`` ("error",
    "warning" or "note"), ``id`` and ``text``. ``strict`` adds the lint findings. A document
    that fails to read is not an exception here but errors in the list."""
    path = _text_argument(path, "path", "check", path=True)
    kind = _text_argument(kind, "kind", "check", optional=True)
    if not isinstance(strict, bool):
        raise TypeError(f"check() argument 'strict' must be bool, not {type(strict).__name__}")
    return _tarvo.check_file(path, kind or "", strict)


def new(kind):
    """A document of ``kind`` (metadata, constraints, logical-arch or traffic) with an empty
    model, for a script that builds one and writes it."""
    return Document(_tarvo.new_document(_text_argument(kind, "kind", "new")))
