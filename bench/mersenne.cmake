sw_add_bench(sw_bench_mersenne ${CMAKE_CURRENT_LIST_DIR}/mersenne_lucas.cpp)
