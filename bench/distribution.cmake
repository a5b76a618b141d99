# Benchmarks of the prime distribution: an Ulam picture of 10^6 cells, its smoothing, and the
# hash walk over the primes to 2e9 (bench/hash_vs_primesieve.sh sets it against primesieve).
sw_add_bench(sw_bench_ulamhash ${CMAKE_CURRENT_LIST_DIR}/distribution_ulamhash.cpp)
