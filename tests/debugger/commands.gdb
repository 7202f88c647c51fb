set width 0
set print address off
set print frame-arguments none
set debuginfod enabled off
set confirm off
break look
run
up
define value
    echo $arg0 =\040
    output $arg0
    echo \n
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
value $qx_table(nested)
value $qx_cell(*prices.object_,1,2)
value $qx_cell(itself,0,1)
kill
