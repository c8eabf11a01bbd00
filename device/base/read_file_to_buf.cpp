// Default file access: small text files, read whole.
#include "lib_common.h"

#include <cstdio>
#include <cstdlib>

static const long LARGEST_FILE = 4 << 20; // bytes; a configuration is far smaller

static char *read_open_file(std::FILE *file)
{
    if (std::fseek(file, 0, SEEK_END) != 0)
        return nullptr;
    long size = std::ftell(file);
    if (size < 0 || size > LARGEST_FILE || std::fseek(file, 0, SEEK_SET) != 0)
        return nullptr;
    char *text = static_cast<char *>(std::calloc(1, static_cast<std::size_t>(size) + 1));
    if (text && std::fread(text, 1, static_cast<std::size_t>(size), file) != static_cast<std::size_t>(size)) {
        std::free(text);
        return nullptr;
    }
    return text;
}

char *read_file_to_buf(char *path)
{
    std::FILE *file = std::fopen(path, "rbe");
    if (!file)
        return nullptr;
    char *text = read_open_file(file);
    std::fclose(file);
    return text;
}
