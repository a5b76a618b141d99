# Benchmarks of the prime display's logic: paging a secondary range.
sw_add_bench(sw_bench_views ${CMAKE_CURRENT_LIST_DIR}/views_anzeige.cpp)
