// The view buffer: its allocation, its background, and the addresses of its pixels.
#include "core/view_buffer.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "core/debug.h"

constinit char *osdmenu_viewbuffer = nullptr;
constinit int osdmenu_viewbuffer_size = 0;
constinit int osdmenu_default_color = 0x04210421;

static char *allocate_view(int size)
{
    if (size < 0) {
        errno = ENOMEM;
        return nullptr;
    }
    return static_cast<char *>(std::calloc(1, static_cast<std::size_t>(size)));
}

char *osdmenu_viewbuffer_malloc(int width, int height)
{
    int size = wrapping_mul(wrapping_mul(width, height), osdmenu_view_pixelsize);
    osdmenu_viewbuffer = allocate_view(size);
    if (!osdmenu_viewbuffer) {
        LIB_TRACE(LOG_WORKAROUND, "osdmenu_viewbuffer calloc failed:%s\n", std::strerror(errno));
        return nullptr;
    }
    osdmenu_viewarea_width = width;
    osdmenu_viewarea_height = height;
    osdmenu_viewbuffer_size = size;
    LIB_TRACE(LOG_EVENT, "view buffer width:%d height:%d size:%d\n", width, height, size);
    return osdmenu_viewbuffer;
}

// The first words are filled, and then copied on: a copy keeps the memory bus busier than a fill.
int osdmenu_viewbuffer_fill_background(void)
{
    if (!osdmenu_viewbuffer)
        return 0;
    std::size_t bytes =
        static_cast<std::size_t>(osdmenu_viewbuffer_size) / sizeof osdmenu_default_color * sizeof osdmenu_default_color;
    std::size_t filled = std::min<std::size_t>(bytes, 4096);
    for (std::size_t at = 0; at < filled; at += sizeof osdmenu_default_color)
        std::memcpy(osdmenu_viewbuffer + at, &osdmenu_default_color, sizeof osdmenu_default_color);
    for (std::size_t at = filled; at < bytes; at += filled)
        std::memcpy(osdmenu_viewbuffer + at, osdmenu_viewbuffer, std::min(filled, bytes - at));
    return 0;
}

char *view_address(std::int64_t offset)
{
    if (!osdmenu_viewbuffer)
        return nullptr;
    return reinterpret_cast<char *>(reinterpret_cast<std::uintptr_t>(osdmenu_viewbuffer) +
                                    static_cast<std::uintptr_t>(offset));
}

std::int64_t offset_of_view_address(const char *address)
{
    return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(address) -
                                     reinterpret_cast<std::uintptr_t>(osdmenu_viewbuffer));
}

void paint_block(int x, int y, const struct pixel_block *block)
{
    struct paint_area area = view_area();
    row_copy(&area, view_offset(x, y), block);
}

void clear_view(std::size_t bytes)
{
    if (osdmenu_viewbuffer)
        std::memset(osdmenu_viewbuffer, 0, std::min(bytes, static_cast<std::size_t>(osdmenu_viewbuffer_size)));
}

void clear_whole_view(void)
{
    clear_view(static_cast<std::size_t>(osdmenu_viewbuffer_size));
}
