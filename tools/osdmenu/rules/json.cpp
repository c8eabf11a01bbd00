#include "rules/json.h"

#include <glib.h>

#include "common/text.h"
#include "menu/configuration.h"

std::string json_quoted(const std::string &text)
{
    char *valid = g_utf8_make_valid(text.c_str(), -1);
    std::string result = json_text(Json(cJSON_CreateString(valid)).get());
    g_free(valid);
    return result.substr(0, result.size() - 1); // without the end of the line
}

std::string json_object(std::initializer_list<std::pair<const char *, std::string>> members)
{
    std::vector<std::string> parts;
    for (const auto &[key, value] : members)
        parts.push_back(json_quoted(key) + ": " + value);
    return std::string("{").append(joined(parts, ", ")).append("}");
}

std::string json_array(const std::vector<std::string> &values)
{
    return std::string("[").append(joined(values, ",\n")).append("]");
}
