# The prime tests at large sizes against GMP's own power in the same run (Miller-Rabin and
# Fermat at 10,000 digits), and BPSW at 2^9689 - 1 and 5,000 digits, which
# bpsw_vs_pari.sh holds against PARI/GP's ispseudoprime. The palindrome game's click at
# 300 digits (target: under 50 ms) and its largest growth tree.
sw_add_bench(sw_bench_primality
  ${CMAKE_CURRENT_LIST_DIR}/primality_tests.cpp
  ${CMAKE_CURRENT_LIST_DIR}/primality_palindrom.cpp
)
