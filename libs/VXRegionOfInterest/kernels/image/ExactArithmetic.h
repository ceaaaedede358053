#pragma once

/// \file
/// To be included first by every source that adds products of doubles.
///
/// Results are defined by rounding after every operation. On processors with a fused multiply-add,
/// compilers may round a product and a sum only once. This project's own build forbids that by a flag;
/// this forbids it where a host compiles the sources with flags of its own.
#if defined(__clang__)
#pragma STDC FP_CONTRACT OFF
#elif defined(__GNUC__)
#pragma GCC optimize("fp-contract=off")
#endif
