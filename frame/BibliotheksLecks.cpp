// Only in sanitizer builds, linked into the programs that meet them: leaks of libraries, not
// ours, suppressed by library. GMP-ECM 7 forgets the values of the curve it builds inside
// ecm_factor (ell_curve_set_z) and, on a refused curve, its modular arithmetic; fontconfig
// keeps a cache for the life of the process. The ECM frames are only seen with the slow
// unwinder, since GMP is built without frame pointers.
extern "C" const char* __lsan_default_suppressions() { return "leak:libecm.so\nleak:libfontconfig\n"; }
extern "C" const char* __asan_default_options() { return "fast_unwind_on_malloc=0"; }
