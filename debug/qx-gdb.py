"""Shows the values of the library's classes in GDB.

GDB loads this file with the library: it is installed in GDB's auto-load directory under the library's own
path, and lies beside the library in a build tree. Otherwise load it with `source qx-gdb.py`.

    QX::Str               "apple"
    QX::AnalyticDouble    12.5                          0 (not valid)
    QX::Date              2026-11-22                    not valid
    QX::DateTime          2026-11-22 09:30:00
    QX::TblPath           "stock/crates[2]"             "a.b" separated by '.'
    QX::Status            Ok                            Error -1 "Key not found"
    QX::Ptr<T>            2 handles = {object = ...}    null
    QX::Cell              empty, 12.5, "apple", table "prices" (2 x 3), error "no price"
    QX::Table             "prices" (2 x 3) = {[0] = {"fruit", "apple", "pear"}, [1] = {"price", 3, 4}}

The shape is indices times items; item 0 of an index is its name. `$qx_table(cell)` is the nested table of
a table cell, `$qx_cell(table, i, j)` one cell of a table, i being the number of an index or its name; a handle
stands for its table. `*ptr`, `ptr->` and `ptr.get()` work as in the program. Tables may have any size: `set print
elements` limits how much of them is shown. Nothing here runs code of the program, so core files can be read as well.
Cells and tables need the debug information of the library.
"""

import datetime
import sys

import gdb
import gdb.printing
import gdb.xmethod

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


def message_of(status):
    """The message of a QX::Status, in quotes."""
    literal = status["literal_"]
    return f'"{literal.string()}"' if literal else quoted(status["text_"])


def described(status):
    """A QX::Status as its state, code and message."""
    state = str(status["state_"]).rpartition("::")[2]
    text = message_of(status)
    code = int(status["code_"])
    return "Ok" if state == "Ok" and text == '""' and code == 0 else f"{state} {code} {text}"


def is_null(handle):
    """True when the QX::Ptr `handle` lacks its object or its count block."""
    return not handle["object_"] or not handle["block_"]


def plain(value):
    """What a class of one member holds, be it a std::atomic or not."""
    while value.type.strip_typedefs().code == gdb.TYPE_CODE_STRUCT:
        value = value[next(field for field in value.type.strip_typedefs().fields() if hasattr(field, "bitpos"))]
    return value


def column_count(body):
    """The number of indices of a table body."""
    return int(body["columns_"]["size_"])


def column_at(body, number):
    """The QX::Column that holds the items of an index."""
    return (body["columns_"]["indices_"] + number).dereference()


def longest(body):
    """The number of items of the longest index, all numbers being read at once."""
    count = column_count(body)
    if count == 0:
        return 0
    start = body["columns_"]["indices_"]
    column = start.type.strip_typedefs().target().strip_typedefs()
    size = next(field for field in column.fields() if field.name == "size_")
    memory = bytes(gdb.selected_inferior().read_memory(start, count * column.sizeof))
    places = range(size.bitpos // 8, len(memory), column.sizeof)
    return max(int.from_bytes(memory[at:at + size.type.sizeof], sys.byteorder) for at in places)


def summary(body):
    """The name and the shape of a table body."""
    return f"{quoted(body['name_'])} ({column_count(body)} x {longest(body)})"


def is_named(column, name):
    """True when item 0 of an index is the text `name`, or the number that it reads as."""
    if int(column["size_"]) == 0:
        return False
    cell = column["cells_"].dereference()
    kind = kind_of(cell)
    if kind == "text":
        return text_of(cell) == name.encode()
    try:
        return kind == "number" and float(cell["content_"]["bits_"]["payload"]["number"]) == float(name)
    except ValueError:
        return False


KINDS = ("empty", "text", "number", "table", "error")


def kind_of(cell):
    """The kind of a QX::Cell, by a word of KINDS."""
    return KINDS[int(cell["content_"]["bits_"]["tag"]) & 7]


def text_place(cell):
    """Where the text of a string QX::Cell begins, and its number of bytes."""
    content = cell["content_"]
    tag = int(content["bits_"]["tag"])
    if tag & 8:
        return int(content.address) + 1, tag >> 4 & 15
    block = gdb.Value(tag & ~7).cast(gdb.lookup_type("QX::Detail::SharedText").pointer())
    return int(block + 1), int(block["size_"])


def text_of(cell):
    """The text of a string QX::Cell, as bytes."""
    start, size = text_place(cell)
    return bytes(gdb.selected_inferior().read_memory(start, size)) if size else b""


def cell_text(cell):
    """The text of a string QX::Cell, in quotes."""
    return quoted_bytes(*text_place(cell))


def nested_table(cell):
    """The nested table of a table QX::Cell."""
    return cell["content_"]["bits_"]["payload"]["table"].dereference()


def error_text(cell):
    """The status of an error QX::Cell."""
    return "error " + message_of(cell["content_"]["bits_"]["payload"]["status"].dereference())


def number_text(number, valid):
    """A number that a QX::AnalyticDouble or a QX::Cell holds."""
    return str(number) + ("" if valid else " (not valid)")


def cell_number(cell):
    """The number that a numeric QX::Cell holds."""
    content = cell["content_"]
    return number_text(content["bits_"]["payload"]["number"], int(content["bits_"]["tag"]) & 8)


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


class NumberPrinter:
    """A number, and whether it means something."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return number_text(self.value["value"], self.value["valid"])


class DatePrinter:
    """A calendar day."""

    EPOCH = datetime.date(1970, 1, 1).toordinal()

    def __init__(self, value):
        self.value = value

    def to_string(self):
        try:
            return str(datetime.date.fromordinal(int(self.value["days_"]) + self.EPOCH))
        except (ValueError, OverflowError):
            return "not valid"


class DateTimePrinter(DatePrinter):
    """A calendar day and a time of day."""

    def to_string(self):
        seconds = int(self.value["seconds_"])
        return f"{super().to_string()} {seconds // 3600:02}:{seconds // 60 % 60:02}:{seconds % 60:02}"


class PathPrinter:
    """A path, with its separator where that is not the usual one."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        separator = chr(int(self.value["separator_"]) & 255)
        return quoted(self.value["path_"]) + ("" if separator == "/" else f" separated by {separator!r}")


class PtrPrinter:
    """The number of handles and the object that they share."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        if is_null(self.value):
            return "null"
        count = int(plain(self.value["block_"]["count_"]))
        return "1 handle" if count == 1 else f"{count} handles"

    def children(self):
        if not is_null(self.value):
            yield "object", self.value["object_"].dereference()


class CountPrinter:
    """The number of handles in a count block."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return str(int(plain(self.value)))


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


class ColumnPrinter:
    """The items of an index, read one by one as they are shown."""

    def __init__(self, column):
        self.column = column

    def to_string(self):
        return None if int(self.column["size_"]) else "{}"

    def children(self):
        for number in range(int(self.column["size_"])):
            yield f"[{number}]", (self.column["cells_"] + number).dereference()

    def display_hint(self):
        return "array"


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
            for number in range(column_count(self.body)):
                yield f"[{number}]", column_at(self.body, number)
        except gdb.error:
            return


class TablePrinter:
    """A table: that of its data body, and its attributes where it has any."""

    def __init__(self, value):
        self.data = value["data_"]
        self.attributes = plain(value["attributes_"])

    def to_string(self):
        if is_null(self.data):
            return "without data"
        return BodyPrinter(self.data["object_"].dereference()).to_string()

    def children(self):
        if not is_null(self.data):
            yield from BodyPrinter(self.data["object_"].dereference()).children()
        if not self.attributes:
            return
        attributes = self.attributes.dereference()
        try:
            described_by = column_count(attributes) > 0
        except gdb.error:
            return
        if described_by:
            yield "attributes", attributes


class PointedTo(gdb.xmethod.XMethodWorker):
    """A member of QX::Ptr<T> that takes nothing and leads to the object."""

    def __init__(self, dereferences):
        self.dereferences = dereferences

    def get_arg_types(self):
        return None

    def get_result_type(self, handle):
        return handle["object_"].dereference().type if self.dereferences else handle["object_"].type

    def __call__(self, handle):
        return handle["object_"].dereference() if self.dereferences else handle["object_"]


class PtrMethod(gdb.xmethod.XMethod):
    """A member of QX::Ptr<T> by its name."""

    def __init__(self, name, dereferences):
        super().__init__(name)
        self.worker = PointedTo(dereferences)


class PtrMatcher(gdb.xmethod.XMethodMatcher):
    """Gives GDB the inline members of QX::Ptr<T>, which no compiled code may hold."""

    def __init__(self):
        super().__init__("qx-ptr")
        self.methods = [PtrMethod("operator*", True), PtrMethod("operator->", False), PtrMethod("get", False)]

    def match(self, class_type, method_name):
        if not str(class_type.strip_typedefs().unqualified()).startswith("QX::Ptr<"):
            return None
        return [method.worker for method in self.methods if method.enabled and method.name == method_name]


def table_of(value):
    """The table that a value means: a QX::Table, or the one that a handle leads to."""
    value = value.referenced_value() if value.type.code == gdb.TYPE_CODE_REF else value
    if not str(value.type.strip_typedefs().unqualified()).startswith("QX::Ptr<"):
        return value
    if is_null(value):
        raise gdb.GdbError("The handle is null")
    return value["object_"].dereference()


class NestedTable(gdb.Function):
    """$qx_table(CELL): the nested table of a table cell."""

    def __init__(self):
        super().__init__("qx_table")

    def invoke(self, cell):
        if kind_of(cell) != "table":
            raise gdb.GdbError("The cell holds no table")
        return nested_table(cell)


class CellAt(gdb.Function):
    """$qx_cell(TABLE, I, J): the cell at item J of index I of a table; I is a number or a name."""

    def __init__(self):
        super().__init__("qx_cell")

    def invoke(self, table, i, j):
        data = table_of(table)["data_"]
        column = None if is_null(data) else self.find(data["object_"].dereference(), i)
        if column is None or not 0 <= int(j) < int(column["size_"]):
            raise gdb.GdbError("The table has no such cell")
        return (column["cells_"] + int(j)).dereference()

    @staticmethod
    def find(body, i):
        """The index of a number or a name, None when there is none."""
        count = column_count(body)
        if i.type.strip_typedefs().code not in (gdb.TYPE_CODE_ARRAY, gdb.TYPE_CODE_PTR):
            return column_at(body, int(i)) if 0 <= int(i) < count else None
        name = i.string()
        named = (column for column in (column_at(body, number) for number in range(count)) if is_named(column, name))
        return next(named, None)


def printers():
    collection = gdb.printing.RegexpCollectionPrettyPrinter("qx")
    collection.add_printer("Str", "^QX::Str$", StrPrinter)
    collection.add_printer("Status", "^QX::Status$", StatusPrinter)
    collection.add_printer("AnalyticDouble", "^QX::AnalyticDouble$", NumberPrinter)
    collection.add_printer("Date", "^QX::Date$", DatePrinter)
    collection.add_printer("DateTime", "^QX::DateTime$", DateTimePrinter)
    collection.add_printer("TblPath", "^QX::TblPath$", PathPrinter)
    collection.add_printer("Ptr", "^QX::Ptr<.*>$", PtrPrinter)
    collection.add_printer("Count", "^QX::Detail::Count$", CountPrinter)
    collection.add_printer("Cell", "^QX::Cell$", CellPrinter)
    collection.add_printer("Table", "^QX::Table$", TablePrinter)
    collection.add_printer("Column", "^QX::Column$", ColumnPrinter)
    collection.add_printer("TableImplementation", "^QX::TableImplementation$", BodyPrinter)
    return collection


gdb.printing.register_pretty_printer(gdb.current_objfile(), printers(), replace=True)
gdb.xmethod.register_xmethod_matcher(gdb.current_objfile(), PtrMatcher(), replace=True)
NestedTable()
CellAt()
