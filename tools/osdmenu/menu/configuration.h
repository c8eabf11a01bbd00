// osd_menu.json, the library's tuning file: read from beside the menu, held against it, and completed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "menu/rows.h"

struct JsonDeleter {
    void operator()(cJSON *node) const
    {
        cJSON_Delete(node);
    }
};
using Json = std::unique_ptr<cJSON, JsonDeleter>;

std::string json_text(const cJSON *json);

class Configuration
{
  public:
    Configuration() = default;

    // A menu without the file gets one that holds its background colour alone.
    Configuration(const Menu &menu, const std::vector<Row> &rows, Findings &findings);

    // x of the values on a page, where the file gives one.
    int value_column(const Menu &menu, const std::string &language, const std::string &page, int fallback) const;

    // Of an entry, empty where there is none.
    std::string text_of(const std::string &key) const;

    std::string text() const
    {
        return json_text(root.get());
    }

  private:
    Json root;
};
