#include "commands/progress.h"

#include <unistd.h>

ShowProgress progress_on(std::FILE *stream)
{
    return [stream](size_t done, size_t all, const std::string &language) {
        if (!isatty(fileno(stream)))
            return;
        std::string bar(done * 30 / all, '#');
        std::fprintf(stream, "\r\033[K[%-30s] %zu of %zu %s", bar.c_str(), done, all, language.c_str());
        if (done == all)
            std::fputs("\r\033[K", stream);
        std::fflush(stream);
    };
}
