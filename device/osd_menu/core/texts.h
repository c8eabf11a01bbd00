// Storing texts in arrays of the library. A host may hand back what it was given: the text may lie in the very array.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

// The length of a text, at most the size of an array. Inside the array, without a terminator, it ends with it.
inline std::size_t length_in(const char *text, const char *array, std::size_t size)
{
    const std::uintptr_t at = reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(array);
    return strnlen(text, at < size ? size - at : size);
}

// Stores the text and fills the rest of the array with zeros.
inline void store_text(char *array, std::size_t size, const char *text, std::size_t length)
{
    std::memmove(array, text, length);
    std::memset(array + length, 0, size - length);
}
