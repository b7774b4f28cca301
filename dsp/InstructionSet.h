#ifndef SONAVIA_DSP_INSTRUCTIONSET_H
#define SONAVIA_DSP_INSTRUCTIONSET_H

/// Which build of the numerical kernels runs. All of them give the same bits; they differ in speed only.
enum class InstructionSet {
    Portable, ///< plain C++, any processor
    Sse2,     ///< every x86-64
    Avx2      ///< x86-64 with AVX2 and FMA (fused operations are not used: they round differently)
};

/// The fastest set that this processor and operating system offer, found once.
InstructionSet bestInstructionSet();

/// The set that kernels use from now on: the best one, unless another was chosen.
InstructionSet activeInstructionSet();

/// Chooses the kernels for the objects made and calls begun from now on; for tests and benchmarks. A set that
/// the processor lacks is replaced by the best one. Not to be called while a computation runs.
void useInstructionSet(InstructionSet set);

#endif
