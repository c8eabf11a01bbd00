// No screen: names of keys come from standard input, and where each led goes to standard output, for pipes.

#include <cctype>
#include <poll.h>
#include <unistd.h>

#include "common/text.h"
#include "desktop/panel.h"
#include "desktop/screen.h"

namespace
{

struct WordScreen : Screen {
    std::FILE *out, *err;
    std::string word;
    std::vector<std::string> told;
    bool is_asked = false, is_at_end = false;

    WordScreen(std::FILE *output, std::FILE *errors) : out(output), err(errors) {}

    // One byte at a time, so that the words behind it are still there when the process starts anew.
    bool read_word(int milliseconds)
    {
        pollfd input = {STDIN_FILENO, POLLIN, 0};
        while (poll(&input, 1, milliseconds) > 0) {
            char byte = ' ';
            is_at_end = read(STDIN_FILENO, &byte, 1) != 1;
            bool is_blank = std::isspace(static_cast<unsigned char>(byte));
            if (is_blank && (is_at_end || !word.empty()))
                return !word.empty();
            if (!is_blank)
                word += byte;
        }
        return false;
    }

    std::vector<std::string> keys(int milliseconds) override
    {
        if (is_at_end || std::ferror(out))
            return {"q"};
        if (!read_word(milliseconds))
            return {};
        if (word.size() == 1) // letters are large in the table
            word[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(word[0])));
        if (!desktop_key(word))
            throw Failure("no key " + in_quotes(word));
        is_asked = true;
        return {std::exchange(word, {})};
    }

    void show(const Session &session) override
    {
        if (std::exchange(is_asked, false))
            std::fprintf(out, "%s\n", place_line().c_str());
        if (session.notices != told)
            for (const std::string &notice : session.notices)
                std::fprintf(err, "osdmenu: %s\n", printable(notice).c_str());
        std::fflush(nullptr);
        told = session.notices;
        needs_paint = false;
    }
};

} // namespace

std::unique_ptr<Screen> open_words(std::FILE *out, std::FILE *err)
{
    return std::make_unique<WordScreen>(out, err);
}
