#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

namespace dg {

struct FreeHeapBytes {
  void operator()(char* bytes) const { std::free(bytes); }
};
/// Bytes from the C heap, which gives back the end of a block without moving the rest: how much of
/// a file there is shows only when it has been read, and stores have thousands of files that are
/// far shorter than an extent.
using HeapBytes = std::unique_ptr<char, FreeHeapBytes>;

/// The same bytes with another size; none become a new block, its bytes not set. Raises
/// std::bad_alloc.
inline HeapBytes resized(HeapBytes bytes, std::size_t size) {
  char* const moved = static_cast<char*>(std::realloc(bytes.get(), std::max<std::size_t>(size, 1)));
  if (moved == nullptr) throw std::bad_alloc();
  static_cast<void>(bytes.release());
  return HeapBytes(moved);
}

}  // namespace dg
