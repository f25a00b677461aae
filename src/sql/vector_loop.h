// Marks a plain loop over arrays: compiled for the baseline processor and once more for AVX2, chosen when the program
// starts. On other processors, and under sanitizers, it is the baseline loop alone.
#pragma once

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
#define SSQ_VECTOR_LOOP __attribute__((target_clones("avx2", "default")))
#else
#define SSQ_VECTOR_LOOP
#endif
