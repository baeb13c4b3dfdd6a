/// What a variable or encoder does with the objects it owns.
#pragma once

#include <memory>

namespace QVXML_940 {

/// A deep copy through `Clone`; null stays null.
template <class T>
std::unique_ptr<T> CloneOf(std::unique_ptr<T> const & original) {
  return std::unique_ptr<T>(original ? original->Clone() : nullptr);
}

/// Makes `owner` own `object`, which it may own already, and destroys what it owned before.
template <class T>
void TakeOver(std::unique_ptr<T> & owner, T * object) {
  if (owner.get() != object) owner.reset(object);
}

}  // namespace QVXML_940
