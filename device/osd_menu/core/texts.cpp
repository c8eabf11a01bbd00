// Storing texts in arrays of the library.
#include "core/texts.h"

#include <cstdint>
#include <cstring>

std::size_t length_in(const char *text, const char *array, std::size_t size)
{
    const std::uintptr_t at = reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(array);
    return strnlen(text, at < size ? size - at : size);
}

void store_text(char *array, std::size_t size, const char *text, std::size_t length)
{
    std::memmove(array, text, length);
    std::memset(array + length, 0, size - length);
}
