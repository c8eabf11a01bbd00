// Where a menu is tried: a window, a terminal, or nothing but words.
#pragma once

#include <memory>

#include "desktop/session.h"

class Screen
{
  public:
    virtual ~Screen() = default;

    // The keys that are pressed within so many milliseconds, by their names in the table.
    virtual std::vector<std::string> keys(int milliseconds) = 0;
    virtual void show(const Session &session) = 0;

    // For another of its kind to be opened as large as this one. "-" where that is nobody's to say.
    virtual std::string size() const
    {
        return "-";
    }

    bool needs_paint = true; // beside any change of the session: it was resized or uncovered
};

// A Failure when there is no desktop to open it on. The scale is in whole steps, 0 fits the window; the size of an
// earlier window goes before it.
std::unique_ptr<Screen> open_window(int scale, const std::string &size);

// These write to streams of their own: standard output is the library's. `graphics` is kitty, sixel, blocks or auto.
std::unique_ptr<Screen> open_terminal(std::FILE *out, const std::string &graphics);
std::unique_ptr<Screen> open_words(std::FILE *out, std::FILE *err);

// An object of a C library, which goes by that library's function.
template <auto release> struct Releases {
    template <class T> void operator()(T *object) const
    {
        release(object);
    }
};
template <class T, auto release> using Owned = std::unique_ptr<T, Releases<release>>;
