press_to_wire_bench 500 > figures
