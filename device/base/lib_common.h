/**
 * @file
 * File access of the host, as the library uses it.
 */
#ifndef LIB_COMMON_H
#define LIB_COMMON_H

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Reads a whole text file.
 *
 * @param path  full path of the file
 * @return the content and a terminating zero byte, in a block that the caller gives to free(); null if it cannot be
 * read
 */
char *read_file_to_buf(char *path);

#ifdef __cplusplus
}
#endif

#endif
