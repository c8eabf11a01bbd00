// A picture of each string that is translated: its row framed on its page, with each of its choices.
#pragma once

#include <map>

#include "gallery/page_rows.h"
#include "gallery/workers.h"

struct StringPictures {
    std::map<std::pair<std::string, int>, std::string> png_files; // by name and choice; -1 is the text of its own

    // A row of the page on show.
    void add_row(const PageRow &row);

    // By names of files, with what stands on no page: messages, help lines and hidden rows are shown alone.
    void add_to(Parts &parts);
};
