# The prime tests at large sizes against GMP's own power in the same run (Miller-Rabin and
# Fermat at 10,000 digits), and BPSW at 2^9689 - 1 and 5,000 digits, which
# bpsw_vs_pari.sh holds against PARI/GP's ispseudoprime.
sw_add_bench(sw_bench_primality
  ${CMAKE_CURRENT_LIST_DIR}/primality_tests.cpp
)
