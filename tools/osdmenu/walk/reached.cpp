#include "walk/reached.h"

#include <algorithm>
#include <set>

#include "common/text.h"
#include "rules/json.h"

std::vector<ReachedRow> reached_rows(const Walk &walk)
{
    std::vector<ReachedRow> rows;
    std::set<std::pair<std::string, std::string>> seen;
    for (size_t at = 0; at < walk.states.size(); at++) {
        const WalkedState &state = walk.states[at];
        if (!state.item.empty() && seen.insert({state.page, state.item}).second)
            rows.push_back({state.page, state.item, state.presses, keys_to(walk, at), state.values});
    }
    return rows;
}

static std::string json_row(const ReachedRow &row)
{
    std::vector<std::string> keys, values;
    for (const std::string &key : row.keys)
        keys.push_back(json_quoted(key));
    for (const WalkedValue &value : row.values)
        values.push_back(json_object(
            {{"value", std::to_string(value.value)}, {"presses", std::to_string(row.presses + value.presses)}}));
    return json_object({{"page", json_quoted(row.page)},
                        {"item", json_quoted(row.item)},
                        {"presses", std::to_string(row.presses)},
                        {"keys", std::string("[").append(joined(keys, ", ")).append("]")},
                        {"values", std::string("[").append(joined(values, ", ")).append("]")}});
}

// Few values stand one by one, a long range as a whole.
static std::string told_values(const ReachedRow &row)
{
    static constexpr size_t FEW = 8;
    if (row.values.empty())
        return "";
    std::vector<std::string> each;
    for (const WalkedValue &value : row.values)
        each.push_back(std::to_string(value.value) + " in " + std::to_string(row.presses + value.presses));
    if (each.size() <= FEW)
        return "  values " + joined(each, ", ");
    auto by_value = [](const WalkedValue &a, const WalkedValue &b) { return a.value < b.value; };
    auto [least, most] = std::minmax_element(row.values.begin(), row.values.end(), by_value);
    return "  " + std::to_string(each.size()) + " values from " + std::to_string(least->value) + " to " +
           std::to_string(most->value) + ", all in " + std::to_string(row.presses + row.values.back().presses);
}

std::string reached_report(const Walk &walk, bool as_json)
{
    std::vector<std::string> lines;
    for (const ReachedRow &row : reached_rows(walk)) {
        if (as_json) {
            lines.push_back(json_row(row));
            continue;
        }
        std::string way = (row.page.empty() ? "" : printable(row.page) + " / ") + printable(row.item);
        lines.push_back(std::to_string(row.presses).append("\t").append(way).append(told_values(row)).append("\n"));
    }
    return as_json
               ? json_object(
                     {{"schema", "1"}, {"whole", walk.is_whole ? "true" : "false"}, {"reached", json_array(lines)}}) +
                     "\n"
               : joined(lines, "");
}
