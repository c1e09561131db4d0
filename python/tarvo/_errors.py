"""Failures and messages of the document library, as Python sees them."""


class DocumentError(Exception):
    """A read or write that failed: the library's message with its place in the file.

    ``file``, ``line`` and ``column`` say where (``line`` and ``column`` are None when the
    place is not known), ``id`` is the message id such as "8-101" (None for a failure
    without one), ``pointer`` the JSON pointer of the failing value when known, and
    ``text`` the message without severity and id.
    """

    def __init__(self, message, file=None, line=None, column=None, id=None, pointer=None, text=None):
        super().__init__(message)
        self.message = message
        self.file = file
        self.line = line
        self.column = column
        self.id = id
        self.pointer = pointer
        self.text = text if text is not None else message


class DocumentWarning(UserWarning):
    """A numbered message (warning or information) the library sent while reading or writing."""

    def __init__(self, message):
        super().__init__(str(message))
        self.message = message
