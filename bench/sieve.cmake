# Benchmarks of the sieve: the count of a built raster (memory speed), the main method, and
# the tertiary range (the residues of a start of 10,000 digits, a window at 10^100).
sw_add_bench(sw_bench_sieve ${CMAKE_CURRENT_LIST_DIR}/sieve_raster.cpp)
sw_add_bench(sw_bench_tertiaer ${CMAKE_CURRENT_LIST_DIR}/sieve_tertiaer.cpp)
