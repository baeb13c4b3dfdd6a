/// The interface's own name for a 64-bit integer.
///
/// Arguments of `long`, `long long` and `std::int64_t` convert to it without ambiguity.
#pragma once

using __int64 = long long;
static_assert(sizeof(__int64) == 8, "__int64 must have 64 bits");
