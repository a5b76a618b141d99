# The Lucas-Lehmer squarings against GMP's squaring with the fold modulo 2^p - 1, in the same
# run: the transform at p = 86,243 and 1,257,787 (targets 0.3x and 0.25x GMP per iteration),
# Karatsuba at 44,497 and 86,243 (target 1.5x).
sw_add_bench(sw_bench_mersenne
  ${CMAKE_CURRENT_LIST_DIR}/mersenne_lucas.cpp
  ${CMAKE_CURRENT_LIST_DIR}/mersenne_karatsuba.cpp
)

# The divisor search at p near 10^8 against a plain unsieved Montgomery loop over the same k
# (target: 10x the k per second). bench/teiler_lauf.sh times sw-cli divisors over a range.
sw_add_bench(sw_bench_teiler ${CMAKE_CURRENT_LIST_DIR}/mersenne_teiler.cpp)

# The database's read and write of one exponent against a bare SQLite upsert, same run.
sw_add_bench(sw_bench_mersenne_db ${CMAKE_CURRENT_LIST_DIR}/mersenne_db.cpp)
target_link_libraries(sw_bench_mersenne_db PRIVATE SQLite::SQLite3)

# Status and statistics of a million database rows, counted and drawn (target: under 1 s),
# against the bare engine's scan of the same rows.
if(TARGET swwindows)
  sw_add_bench(sw_bench_mersenne_status ${CMAKE_CURRENT_LIST_DIR}/mersenne_status.cpp)
  target_link_libraries(sw_bench_mersenne_status PRIVATE swwindows SQLite::SQLite3)
endif()
