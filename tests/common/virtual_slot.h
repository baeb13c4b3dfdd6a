// The order of virtual operations, which is part of the binary interface.
#pragma once

#include <cstddef>
#include <cstring>

// The place of a virtual operation in its class's table. The destructor, which comes first in every
// class here, takes the places 0 and 1. A pointer to a virtual member holds 1 plus the offset in
// bytes.
template <class Member>
long VirtualSlot(Member member) {
  std::ptrdiff_t word = 0;
  static_assert(sizeof member >= sizeof word);
  std::memcpy(&word, &member, sizeof word);
  return (word - 1) / static_cast<long>(sizeof(void *));
}
