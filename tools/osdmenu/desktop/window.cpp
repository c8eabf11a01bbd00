// A window: the page at the left, in any size, and the panel at its right. No graphics card takes part, so every pixel
// is the same everywhere.

#include <algorithm>

#include <SDL.h>
#include <pango/pangocairo.h>

#include "common/text.h"
#include "desktop/panel.h"
#include "desktop/screen.h"
#include "render/fonts.h"

static constexpr int PANEL_WIDTH = 420, MARGIN = 16, LINE_HEIGHT = 20; // pixels
static constexpr int MOST_SCALE = 8;

static const struct {
    SDL_Keycode code;
    const char *key;
} codes[] = {
    {SDLK_UP, "up"},       {SDLK_DOWN, "down"}, {SDLK_LEFT, "left"},      {SDLK_RIGHT, "right"}, {SDLK_RETURN, "ok"},
    {SDLK_KP_ENTER, "ok"}, {SDLK_HOME, "menu"}, {SDLK_BACKSPACE, "back"}, {SDLK_ESCAPE, "q"},
};

// In the order of Tone.
static const char *const spans[] = {
    "weight='bold' foreground='#ffffff'", "foreground='#d5dbe6'",
    "weight='bold' foreground='#7fd1ff'", "foreground='#97a1b2'",
    "weight='bold' foreground='#ffffff'", "weight='bold' foreground='#ffb454'",
};

// A page that is larger than the desktop is made smaller, if any size will do.
static SDL_Point first_size(int scale)
{
    SDL_Rect desktop = {0, 0, 1280, 720};
    SDL_GetDisplayUsableBounds(0, &desktop);
    PixelView view = painted_view();
    double fitting = std::min((0.95 * desktop.w - PANEL_WIDTH) / view.width, 0.9 * desktop.h / view.height);
    double factor = scale ? scale : std::min(1.0, fitting);
    return {std::min(desktop.w, static_cast<int>(view.width * factor) + PANEL_WIDTH),
            std::min(desktop.h, static_cast<int>(view.height * factor))};
}

static void put(SDL_Surface *target, void *pixels, const SDL_Rect &place, Uint32 format)
{
    Owned<SDL_Surface, SDL_FreeSurface> source(
        SDL_CreateRGBSurfaceWithFormatFrom(pixels, place.w, place.h, 32, place.w * 4, format));
    SDL_Rect where = place;
    SDL_SetSurfaceBlendMode(source.get(), SDL_BLENDMODE_NONE);
    SDL_BlitSurface(source.get(), nullptr, target, &where);
}

// What of a picture can be seen in a place that is smaller than it.
static Image beginning_of(const Image &image, int width, int height)
{
    Image part{std::min(width, image.width), std::min(height, image.height), {}};
    for (int y = 0; y < part.height; y++)
        part.pixels.insert(part.pixels.end(), image.row(y), image.row(y) + part.width);
    return part;
}

// In the middle of its place; cut there where it is larger. Whole steps keep every pixel as it is.
static void put_page(SDL_Surface *target, const Image &page, int scale, const SDL_Rect &place)
{
    double fitting = std::min(static_cast<double>(place.w) / page.width, static_cast<double>(place.h) / page.height);
    double factor = scale ? scale : fitting;
    Image seen = beginning_of(page, static_cast<int>(place.w / factor) + 1, static_cast<int>(place.h / factor) + 1);
    Image image = scaled(seen, std::max(1, static_cast<int>(seen.width * factor)),
                         std::max(1, static_cast<int>(seen.height * factor)));
    SDL_SetClipRect(target, &place);
    put(target, image.pixels.data(),
        {std::max(0, (place.w - image.width) / 2), std::max(0, (place.h - image.height) / 2), image.width,
         image.height},
        SDL_PIXELFORMAT_RGBA32);
    SDL_SetClipRect(target, nullptr);
}

static std::string markup(const PanelLine &line)
{
    Owned<char, g_free> escaped(g_markup_escape_text(line.text.c_str(), -1));
    std::string span = spans[static_cast<int>(line.tone)];
    return span.insert(0, "<span ").append(">").append(escaped.get()).append("</span>");
}

static void put_panel(SDL_Surface *target, const Session &session, const SDL_Rect &place)
{
    Owned<cairo_surface_t, cairo_surface_destroy> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, place.w, place.h));
    Owned<cairo_t, cairo_destroy> cairo(cairo_create(surface.get()));
    cairo_set_source_rgb(cairo.get(), 0.10, 0.12, 0.15);
    cairo_paint(cairo.get());
    std::unique_ptr<PangoLayout, GObjectDeleter> layout(pango_cairo_create_layout(cairo.get()));
    Owned<PangoFontDescription, pango_font_description_free> font(pango_font_description_from_string("Monospace 10"));
    pango_layout_set_font_description(layout.get(), font.get());
    pango_layout_set_width(layout.get(), (place.w - 2 * MARGIN) * PANGO_SCALE);
    pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
    pango_layout_set_auto_dir(layout.get(), FALSE);
    size_t room = static_cast<size_t>(std::max(0, place.h - 2 * MARGIN) / LINE_HEIGHT);
    double y = MARGIN;
    for (const PanelLine &line : panel_lines(session, room, false)) {
        pango_layout_set_markup(layout.get(), markup(line).c_str(), -1);
        cairo_move_to(cairo.get(), MARGIN, y);
        pango_cairo_show_layout(cairo.get(), layout.get());
        y += LINE_HEIGHT;
    }
    cairo_surface_flush(surface.get());
    put(target, cairo_image_surface_get_data(surface.get()), place, SDL_PIXELFORMAT_RGB888);
}

namespace
{

struct Window : Screen {
    Owned<SDL_Window, SDL_DestroyWindow> window;
    int scale; // 0 fits the window

    // A session saves what it keeps when a signal comes, which SDL would take for itself.
    Window(int whole_steps, const std::string &earlier_size) : scale(whole_steps)
    {
        SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11,wayland"); // others show their window to nobody
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
        SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
        SDL_Point size = {};
        if (SDL_Init(SDL_INIT_VIDEO) == 0)
            size = first_size(scale);
        if (int earlier[3]; std::sscanf(earlier_size.c_str(), "%dx%d/%d", &earlier[0], &earlier[1], &earlier[2]) == 3) {
            size = {std::max(1, earlier[0]), std::max(1, earlier[1])};
            scale = std::clamp(earlier[2], 0, MOST_SCALE);
        }
        window.reset(SDL_CreateWindow("osdmenu", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, size.x, size.y,
                                      SDL_WINDOW_RESIZABLE));
        if (!window)
            throw Failure(std::string("no window can be opened: ") + SDL_GetError());
        SDL_SetWindowMinimumSize(window.get(), PANEL_WIDTH + 160, 160);
    }

    ~Window() override
    {
        window.reset();
        SDL_Quit();
    }

    std::string size() const override
    {
        SDL_Point now = {};
        SDL_GetWindowSize(window.get(), &now.x, &now.y);
        return std::to_string(now.x) + "x" + std::to_string(now.y) + "/" + std::to_string(scale);
    }

    // Below 1 the page fits the window.
    void zoom(int steps)
    {
        scale = std::clamp(scale + steps, 0, MOST_SCALE);
        SDL_Point size = first_size(scale);
        SDL_SetWindowSize(window.get(), size.x, size.y);
        needs_paint = true;
    }

    // Letters come as text, whatever the layout of the keyboard.
    void take(const SDL_Event &event, std::vector<std::string> &keys)
    {
        needs_paint = needs_paint || event.type == SDL_WINDOWEVENT;
        if (event.type == SDL_QUIT)
            keys.push_back("q");
        for (const auto &[code, key] : codes)
            if (event.type == SDL_KEYDOWN && event.key.keysym.sym == code)
                keys.push_back(key);
        if (event.type != SDL_TEXTINPUT)
            return;
        char letter = g_ascii_tolower(event.text.text[0]);
        if (letter == '+' || letter == '-')
            zoom(letter == '+' ? 1 : -1);
        keys.push_back(std::string(1, letter));
    }

    // SDL's own way of waiting sends the window events that end the process when they come after its end.
    std::vector<std::string> keys(int milliseconds) override
    {
        static constexpr int STEP = 10;
        std::vector<std::string> keys;
        SDL_Event event;
        for (int waited = 0; waited < milliseconds && keys.empty() && !needs_paint; waited += STEP) {
            SDL_Delay(STEP);
            while (SDL_PollEvent(&event))
                take(event, keys);
        }
        return keys;
    }

    void show(const Session &session) override
    {
        SDL_Surface *surface = SDL_GetWindowSurface(window.get());
        if (!surface)
            throw Failure(std::string("the window cannot be painted: ") + SDL_GetError());
        int page_width = std::max(1, surface->w - PANEL_WIDTH);
        SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 16, 18, 22));
        put_page(surface, session_picture(session), scale, {0, 0, page_width, surface->h});
        put_panel(surface, session, {page_width, 0, PANEL_WIDTH, surface->h});
        SDL_UpdateWindowSurface(window.get());
        needs_paint = false;
    }
};

} // namespace

std::unique_ptr<Screen> open_window(int scale, const std::string &size)
{
    return std::make_unique<Window>(scale, size);
}
