# zahlkern against GMP's mpn layer in the same run, and the kernels' call rates.
sw_add_bench(sw_bench_zahlkern zahlkern_hyp.cpp zahlkern_kern.cpp)
