set width 0
set print address off
set print frame-arguments none
set debuginfod enabled off
set confirm off
break look
run
up
python
class Value(gdb.Command):
    """Prints an expression with its value, or why it has none."""

    def __init__(self):
        super().__init__("value", gdb.COMMAND_DATA)

    def invoke(self, expression, from_tty):
        try:
            print(expression, "=", gdb.parse_and_eval(expression).format_string())
        except gdb.error as error:
            print(expression, "fails:", error)

Value()
end
value text
value zero
value none
value ok
value failed
value warned
value empty
value number
value undefined
value word
value broken
value error
value longText
value nested
value *prices.object_
value prices
value nothing
value ragged
value itself
value bare
value quotient
value quotientOfNothing
value day
value noDay
value path
value dotted
value *prices
value prices->data_.block_->count_
value $qx_table(nested)
value $qx_cell(*prices.object_,1,2)
value $qx_cell(itself,0,1)
value $qx_cell(prices,"fruit",2)
value $qx_cell(large,"numbers",100000)
value $qx_cell(large,"2",1)
value $qx_cell(large,2,0)
value $qx_cell(large,"none",0)
value *nothing
set print elements 4
value large
kill
