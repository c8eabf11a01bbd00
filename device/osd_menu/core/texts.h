// Storing texts in arrays of the library. A host may hand back what it was given: the text may lie in the very array.
#pragma once

#include <cstddef>

// The length of a text, at most the size of an array. Inside the array, without a terminator, it ends with it.
std::size_t length_in(const char *text, const char *array, std::size_t size);

// Stores so many bytes of a text and fills the rest of the array with zeros.
void store_text(char *array, std::size_t size, const char *text, std::size_t length);
