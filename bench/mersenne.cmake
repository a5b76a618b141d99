# The transform squaring of the Lucas-Lehmer test against GMP's squaring with the fold modulo
# 2^p - 1, at p = 86,243 and p = 1,257,787 (targets: 0.3x and 0.25x GMP per iteration).
sw_add_bench(sw_bench_mersenne
  ${CMAKE_CURRENT_LIST_DIR}/mersenne_lucas.cpp
)
