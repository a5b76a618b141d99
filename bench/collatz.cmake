# The Collatz walks against plain loops in the same run: the range count against the obvious
# 64-bit loop, the mark string of a 100,000-bit start against GMP, the lines of the bar graphic,
# the walk of the fractional multiplier window against a GMP loop.
sw_add_bench(sw_bench_collatz collatz_zaehlen.cpp collatz_komma.cpp)
# The step-count graphic fills and draws its columns through the window library's painter.
if(TARGET swwindows)
  target_sources(sw_bench_collatz PRIVATE collatz_grafik.cpp)
  target_link_libraries(sw_bench_collatz PRIVATE swwindows)
endif()
# The factorial family n = 1..2000 against a GMP loop (scan1, shift, 3n + 1).
sw_add_bench(sw_bench_collatz_familie collatz_familie.cpp)
