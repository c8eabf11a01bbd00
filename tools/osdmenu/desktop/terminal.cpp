// A terminal: the page as well as it can be drawn there, and the panel at its right or below it.

#include <algorithm>
#include <csignal>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <chafa.h>

#include "common/text.h"
#include "desktop/panel.h"
#include "desktop/screen.h"

using TermInfo = Owned<ChafaTermInfo, chafa_term_info_unref>;

static constexpr int SIDE_COLUMNS = 100; // from here on the panel stands at the right
static constexpr int PANEL_COLUMNS = 44, STRIP_ROWS = 11;

static const char *const tones[] = {"\033[1m", "", "\033[1;36m", "\033[2m", "\033[7m", "\033[1;33m"}; // as Tone
static const char FORGET_PICTURES[] = "\033_Ga=d,q=2\033\\";                                          // of kitty

static const struct {
    const char *bytes;
    const char *key;
} sequences[] = {
    {"\033[A", "up"},    {"\033OA", "up"},    {"\033[B", "down"},  {"\033OB", "down"},
    {"\033[C", "right"}, {"\033OC", "right"}, {"\033[D", "left"},  {"\033OD", "left"},
    {"\033[H", "menu"},  {"\033OH", "menu"},  {"\033[1~", "menu"}, {"\r", "ok"},
    {"\n", "ok"},        {"\177", "back"},    {"\b", "back"},      {"\003", "q"},
};

static volatile std::sig_atomic_t size_changed;

struct Cells {
    int columns, rows;
    int width, height; // of one, pixels
};

// A terminal that doesn't tell its pixels has cells twice as high as wide.
static Cells cells_of(int fd)
{
    winsize size = {};
    ioctl(fd, TIOCGWINSZ, &size);
    Cells cells = {size.ws_col ? size.ws_col : 80, size.ws_row ? size.ws_row : 24, 8, 16};
    if (size.ws_xpixel / cells.columns > 1 && size.ws_ypixel / cells.rows > 1)
        cells.width = size.ws_xpixel / cells.columns, cells.height = size.ws_ypixel / cells.rows;
    return cells;
}

// The most cells that a picture fills in its own shape.
static Cells fitted(const Image &picture, Cells room)
{
    double scale = std::min(static_cast<double>(room.columns) * room.width / picture.width,
                            static_cast<double>(room.rows) * room.height / picture.height);
    room.columns = std::clamp(static_cast<int>(picture.width * scale / room.width), 1, room.columns);
    room.rows = std::clamp(static_cast<int>(picture.height * scale / room.height), 1, room.rows);
    return room;
}

// What is asked for by name may be more than the terminal's name promises, so the usual sequences fill it up.
static TermInfo known_terminal(const std::string &graphics, ChafaPixelMode &mode, ChafaCanvasMode &colours)
{
    Owned<gchar *, g_strfreev> environment(g_get_environ());
    ChafaTermDb *terminals = chafa_term_db_get_default();
    TermInfo info(chafa_term_db_detect(terminals, environment.get()));
    auto has = [&](ChafaTermSeq sequence) { return chafa_term_info_have_seq(info.get(), sequence); };
    colours = has(CHAFA_TERM_SEQ_SET_COLOR_FGBG_DIRECT) ? CHAFA_CANVAS_MODE_TRUECOLOR
              : has(CHAFA_TERM_SEQ_SET_COLOR_FGBG_256)  ? CHAFA_CANVAS_MODE_INDEXED_256
                                                        : CHAFA_CANVAS_MODE_INDEXED_16;
    auto wants = [&](const char *name, ChafaTermSeq needed) {
        return graphics == name || (graphics == "auto" && has(needed));
    };
    mode = wants("kitty", CHAFA_TERM_SEQ_BEGIN_KITTY_IMMEDIATE_IMAGE_V1) ? CHAFA_PIXEL_MODE_KITTY
           : wants("sixel", CHAFA_TERM_SEQ_BEGIN_SIXELS)                 ? CHAFA_PIXEL_MODE_SIXELS
                                                                         : CHAFA_PIXEL_MODE_SYMBOLS;
    TermInfo usual(chafa_term_db_get_fallback_info(terminals));
    chafa_term_info_supplement(info.get(), usual.get());
    return info;
}

// Bytes of the first key: an escape sequence ends with its first letter or tilde. 0 when more must come.
static size_t key_length(const std::string &bytes)
{
    if (bytes[0] != '\033' || (bytes.size() > 1 && bytes[1] != '[' && bytes[1] != 'O'))
        return 1;
    // Function keys of a console without a desktop have a second bracket.
    for (size_t i = bytes.size() > 2 && bytes[2] == '[' ? 3 : 2; i < bytes.size(); i++)
        if (bytes[i] >= '@' && bytes[i] <= '~')
            return i + 1;
    return 0;
}

static std::string key_of(const std::string &bytes)
{
    for (const auto &[sequence, key] : sequences)
        if (bytes == sequence)
            return key;
    return std::string(1, g_ascii_tolower(bytes[0]));
}

namespace
{

struct Terminal : Screen {
    std::FILE *out;
    ChafaPixelMode mode;
    ChafaCanvasMode colours;
    TermInfo info;
    termios before;
    std::string unread; // bytes of a key that hasn't come whole
    bool showed_keys = false;

    // Keys come one by one, Ctrl-C among them.
    Terminal(std::FILE *stream, const std::string &graphics)
        : out(stream), info(known_terminal(graphics, mode, colours))
    {
        if (!isatty(fileno(out)) || tcgetattr(STDIN_FILENO, &before) != 0)
            throw Failure("standard input and output are no terminal");
        termios raw = before;
        raw.c_iflag &= ~static_cast<tcflag_t>(ICRNL | IXON);
        raw.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG | IEXTEN);
        tcsetattr(STDIN_FILENO, TCSADRAIN, &raw);
        struct sigaction action = {};
        action.sa_handler = [](int) { size_changed = 1; };
        action.sa_flags = SA_RESTART; // or a write in its midst would be cut
        sigaction(SIGWINCH, &action, nullptr);
        std::fputs("\033[?1049h\033[?25l", out);
    }

    ~Terminal() override
    {
        std::fprintf(out, "%s\033[?25h\033[?1049l", mode == CHAFA_PIXEL_MODE_KITTY ? FORGET_PICTURES : "");
        std::fflush(out);
        tcsetattr(STDIN_FILENO, TCSADRAIN, &before);
    }

    std::vector<std::string> keys(int milliseconds) override
    {
        pollfd input = {STDIN_FILENO, POLLIN, 0};
        int ready = poll(&input, 1, milliseconds);
        needs_paint = needs_paint || size_changed;
        if (ready <= 0)
            return {};
        char bytes[256];
        ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0)
            return {"q"}; // the terminal has gone
        unread.append(bytes, static_cast<size_t>(count));
        std::vector<std::string> keys;
        for (size_t length; !unread.empty() && (length = key_length(unread)) > 0; unread.erase(0, length))
            keys.push_back(key_of(unread.substr(0, length)));
        return keys;
    }

    Owned<ChafaCanvas, chafa_canvas_unref> canvas_of(const Cells &cells) const
    {
        static constexpr int HALVES = CHAFA_SYMBOL_TAG_VHALF | CHAFA_SYMBOL_TAG_SPACE | CHAFA_SYMBOL_TAG_SOLID;
        Owned<ChafaCanvasConfig, chafa_canvas_config_unref> config(chafa_canvas_config_new());
        Owned<ChafaSymbolMap, chafa_symbol_map_unref> symbols(chafa_symbol_map_new());
        chafa_symbol_map_add_by_tags(symbols.get(), static_cast<ChafaSymbolTags>(HALVES));
        chafa_canvas_config_set_symbol_map(config.get(), symbols.get());
        chafa_canvas_config_set_geometry(config.get(), cells.columns, cells.rows);
        chafa_canvas_config_set_cell_geometry(config.get(), cells.width, cells.height);
        chafa_canvas_config_set_pixel_mode(config.get(), mode);
        chafa_canvas_config_set_canvas_mode(config.get(), colours);
        chafa_canvas_config_set_preprocessing_enabled(config.get(), FALSE);
        return Owned<ChafaCanvas, chafa_canvas_unref>(chafa_canvas_new(config.get()));
    }

    // libchafa looks at eight by eight pixels of a cell and blurs what it scales: half blocks come in that size.
    void draw_picture(Image picture, const Cells &room)
    {
        Cells cells = fitted(picture, room);
        if (mode == CHAFA_PIXEL_MODE_SYMBOLS)
            picture = scaled(scaled(picture, cells.columns, cells.rows * 2), cells.columns * 8, cells.rows * 8);
        auto canvas = canvas_of(cells);
        chafa_canvas_draw_all_pixels(canvas.get(), CHAFA_PIXEL_RGBA8_UNASSOCIATED,
                                     reinterpret_cast<const guint8 *>(picture.pixels.data()), picture.width,
                                     picture.height, picture.width * 4);
        GString *printed = chafa_canvas_print(canvas.get(), info.get());
        std::fprintf(out, "%s\033[H%s\033[0m", mode == CHAFA_PIXEL_MODE_KITTY ? FORGET_PICTURES : "", printed->str);
        g_string_free(printed, TRUE);
    }

    void show(const Session &session) override
    {
        // What another size or the list of keys leaves behind goes, but not at every key.
        if (needs_paint || showed_keys != session.shows_keys)
            std::fputs("\033[2J", out);
        showed_keys = session.shows_keys;
        needs_paint = false;
        size_changed = 0;
        Cells cells = cells_of(fileno(out)), room = cells;
        bool is_wide = cells.columns >= SIDE_COLUMNS;
        int height = is_wide || session.shows_keys ? cells.rows : std::min(STRIP_ROWS, cells.rows / 2);
        room.columns -= is_wide ? PANEL_COLUMNS + 1 : 0;
        room.rows -= is_wide ? 1 : height;
        if (room.rows > 0)
            draw_picture(session_picture(session), room);
        int row = is_wide ? 1 : room.rows + 1, column = is_wide ? room.columns + 2 : 1;
        for (const PanelLine &line : panel_lines(session, static_cast<size_t>(height), true))
            std::fprintf(out, "\033[%d;%dH%s%s\033[0m", row++, column, tones[static_cast<int>(line.tone)],
                         in_cells(line.text, cells.columns - column + 1).c_str());
        std::fflush(out);
    }
};

} // namespace

std::unique_ptr<Screen> open_terminal(std::FILE *out, const std::string &graphics)
{
    return std::make_unique<Terminal>(out, graphics);
}
