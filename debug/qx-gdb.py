"""Shows the values of the library's classes in GDB.

GDB loads this file with the library: it is installed in GDB's auto-load directory under the library's own
path, and lies beside the library in a build tree. Otherwise load it with `source qx-gdb.py`.

    QX::Str               "apple"
    QX::Status            Ok                            Error -1 "Key not found"
    QX::Ptr<T>            2 handles = {object = ...}    null
    QX::Cell              empty, 12.5, "apple", table "prices" (2 x 3), error "no price"
    QX::Table             "prices" (2 x 3) = {[0] = {"fruit", "apple", "pear"}, [1] = {"price", 3, 4}}

The shape is indices times items; item 0 of an index is its name. `$qx_table(cell)` is the nested table of
a table cell, `$qx_cell(table, i, j)` one cell of a table. Nothing here runs code of the program, so core
files can be read as well. Cells and tables need the debug information of the library.
"""

import gdb
import gdb.printing

LONGEST = 200  # the number of bytes that are shown of a text within a summary
ESCAPES = ((b"\\", b"\\\\"), (b'"', b'\\"'), (b"\n", b"\\n"), (b"\t", b"\\t"), (b"\0", b"\\000"))


def quoted(text):
    """The QX::Str `text` in quotes, as quoted_bytes() shows it."""
    body = text["text_"]
    return quoted_bytes(body["_M_dataplus"]["_M_p"], int(body["_M_string_length"]))


def quoted_bytes(start, size):
    """A text of so many bytes in quotes, its quotes, line ends and broken UTF-8 escaped."""
    shown = bytes(gdb.selected_inferior().read_memory(start, min(size, LONGEST))) if size else b""
    for plain, written in ESCAPES:
        shown = shown.replace(plain, written)
    escaped = shown.decode("utf-8", "backslashreplace")
    return f'"{escaped}"' + ("..." if size > LONGEST else "")


def described(status):
    """A QX::Status as its state, code and message."""
    state = str(status["state_"]).rpartition("::")[2]
    text = quoted(status["text_"])
    code = int(status["code_"])
    return "Ok" if state == "Ok" and text == '""' and code == 0 else f"{state} {code} {text}"


def is_null(handle):
    """True when the QX::Ptr `handle` lacks its object or its count block."""
    return not handle["object_"] or not handle["block_"]


def indices_of(body):
    """The indices of a table body, each the address of its first item and the number of items."""
    indices = body["indices_"]
    for number in range(int(indices["size_"])):
        index = (indices["indices_"] + number).dereference()
        yield index["cells_"], int(index["size_"])


def summary(body):
    """The name and the shape of a table body."""
    lengths = [length for _, length in indices_of(body)]
    return f"{quoted(body['name_'])} ({len(lengths)} x {max(lengths, default=0)})"


KINDS = ("empty", "text", "number", "table", "error")


def kind_of(cell):
    """The kind of a QX::Cell, by a word of KINDS."""
    return KINDS[int(cell["content_"]["tag_"]) & 7]


def cell_text(cell):
    """The text of a string QX::Cell, in quotes."""
    content = cell["content_"]
    tag = int(content["tag_"])
    if tag & 8:
        return quoted_bytes(int(content.address) + 1, tag >> 4 & 15)
    block = gdb.Value(tag & ~7).cast(gdb.lookup_type("QX::SharedText").pointer())
    return quoted_bytes(int(block + 1), int(block["size_"]))


def nested_table(cell):
    """The nested table of a table QX::Cell."""
    return cell["content_"]["payload_"]["table"].dereference()


def error_text(cell):
    """The status of an error QX::Cell."""
    pointer = cell["content_"]["payload_"]["error"]
    return "error " + quoted(pointer.cast(pointer.dynamic_type)["status_"]["text_"])


def number_text(number, valid):
    """A number that a QX::AnalyticDouble or a QX::Cell holds."""
    return str(number) + ("" if valid else " (not valid)")


def cell_number(cell):
    """The number that a numeric QX::Cell holds."""
    content = cell["content_"]
    return number_text(content["payload_"]["number"], int(content["tag_"]) & 8)


def table_text(table):
    """The name and the shape of a table that a cell holds."""
    data = table["data_"]
    return "table without data" if is_null(data) else "table " + summary(data["object_"].dereference())


class StrPrinter:
    """A text, cut by GDB's own limits."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        body = self.value["text_"]
        return body["_M_dataplus"]["_M_p"].lazy_string(length=int(body["_M_string_length"]))

    def display_hint(self):
        return "string"


class StatusPrinter:
    """The state, the code and the message of a status."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return described(self.value)


class PtrPrinter:
    """The number of handles and the object that they share."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        if is_null(self.value):
            return "null"
        count = int(self.value["block_"]["count_"])
        return "1 handle" if count == 1 else f"{count} handles"

    def children(self):
        if not is_null(self.value):
            yield "object", self.value["object_"].dereference()


class CellPrinter:
    """What a cell holds; a nested table only by its name and shape, since tables may contain themselves."""

    TEXTS = {
        "empty": lambda cell: "empty",
        "text": cell_text,
        "number": cell_number,
        "table": lambda cell: table_text(nested_table(cell)),
        "error": error_text,
    }

    def __init__(self, value):
        self.value = value

    def to_string(self):
        try:
            return self.TEXTS[kind_of(self.value)](self.value)
        except (gdb.error, KeyError):
            return "not readable, or without debug information"


class BodyPrinter:
    """The name, the shape and the items of a table body."""

    def __init__(self, body):
        self.body = body

    def to_string(self):
        try:
            return summary(self.body)
        except gdb.error:
            return "not readable, or without debug information"

    def children(self):
        try:
            for number, (start, length) in enumerate(indices_of(self.body)):
                row = start.type.strip_typedefs().target().array(length - 1).pointer()
                yield f"[{number}]", start.cast(row).dereference() if length else "{}"
        except gdb.error:
            return


class TablePrinter:
    """A table: that of its data body, and its attributes where it has any."""

    def __init__(self, value):
        self.data = value["data_"]
        self.attributes = value["attributes_"]

    def to_string(self):
        if is_null(self.data):
            return "without data"
        return BodyPrinter(self.data["object_"].dereference()).to_string()

    def children(self):
        if not is_null(self.data):
            yield from BodyPrinter(self.data["object_"].dereference()).children()
        if is_null(self.attributes):
            return
        attributes = self.attributes["object_"].dereference()
        try:
            described_by = any(True for _ in indices_of(attributes))
        except gdb.error:
            return
        if described_by:
            yield "attributes", attributes


class NestedTable(gdb.Function):
    """$qx_table(CELL): the nested table of a table cell."""

    def __init__(self):
        super().__init__("qx_table")

    def invoke(self, cell):
        if kind_of(cell) != "table":
            raise gdb.GdbError("The cell holds no table")
        return nested_table(cell)


class CellAt(gdb.Function):
    """$qx_cell(TABLE, I, J): the cell at item J of index I of a table."""

    def __init__(self):
        super().__init__("qx_cell")

    def invoke(self, table, i, j):
        found = [] if is_null(table["data_"]) else list(indices_of(table["data_"]["object_"].dereference()))
        if not 0 <= int(i) < len(found) or not 0 <= int(j) < found[int(i)][1]:
            raise gdb.GdbError("The table has no such cell")
        return (found[int(i)][0] + int(j)).dereference()


def printers():
    collection = gdb.printing.RegexpCollectionPrettyPrinter("qx")
    collection.add_printer("Str", "^QX::Str$", StrPrinter)
    collection.add_printer("Status", "^QX::Status$", StatusPrinter)
    collection.add_printer("Ptr", "^QX::Ptr<.*>$", PtrPrinter)
    collection.add_printer("Cell", "^QX::Cell$", CellPrinter)
    collection.add_printer("Table", "^QX::Table$", TablePrinter)
    collection.add_printer("TableImplementation", "^QX::TableImplementation$", BodyPrinter)
    return collection


gdb.printing.register_pretty_printer(gdb.current_objfile(), printers(), replace=True)
NestedTable()
CellAt()
