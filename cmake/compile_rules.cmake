# How every source of this project is compiled: the library, its tests, its examples.

# -ffp-contract=off: the compiler never fuses a product and a sum by itself, so that a result is
# the same under every compiler and on every CPU. Kernels that fuse say so with std::fma.
# -fno-math-errno: sqrt and its kin need not set errno; no result changes.
# -Wno-restrict: GCC 12 sees an overlap in "literal" + std::string (its bug 105651).
function(qvcommon_compile_rules target)
  target_compile_options(${target} PRIVATE
    -ffp-contract=off -fno-math-errno
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${QVCOMMON_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()

# Sanitizers and coverage are chosen by the presets through this one variable.
set(QVCOMMON_INSTRUMENT "" CACHE STRING "Instrumentation: empty, address, thread or coverage")
if(QVCOMMON_INSTRUMENT STREQUAL "address")
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
elseif(QVCOMMON_INSTRUMENT STREQUAL "thread")
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
elseif(QVCOMMON_INSTRUMENT STREQUAL "coverage")
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()
