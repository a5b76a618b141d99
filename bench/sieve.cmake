# Benchmarks of the sieve: the count of a built raster (memory speed) and the main method.
sw_add_bench(sw_bench_sieve ${CMAKE_CURRENT_LIST_DIR}/sieve_raster.cpp)
