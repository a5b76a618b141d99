# Benchmarks of the own arithmetic against GMP in the same run: text conversion at a million
# digits, modular powers at a 10,000-digit modulus, and the evaluation of a Mersenne number.
sw_add_bench(sw_bench_arith
  ${CMAKE_CURRENT_LIST_DIR}/arith_text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/arith_potenz.cpp
)
