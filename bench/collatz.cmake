# The Collatz walks against plain loops in the same run: the range count against the obvious
# 64-bit loop, the mark string of a 100,000-bit start against GMP, the lines of the bar graphic,
# the walk of the fractional multiplier window against a GMP loop.
sw_add_bench(sw_bench_collatz collatz_zaehlen.cpp collatz_komma.cpp)
