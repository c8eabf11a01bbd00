// Every call of the system fails once in every loader: it is reported, nothing is lost, and the next load is whole.
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>

#include "support/faults.h"
#include "support/host.h"

struct Loader {
    const char *name;
    int (*load)(const char *dir);
    int whole, failed;       // results
    std::vector<int> closes; // results when the close of the first and of the second file fails
    std::string reports;     // what its lines say before "fail", that of perror first where the two differ
};

// What a menu item and a line have in common.
static const std::string SHARED =
    "calloc osdmenu_item name: calloc newitem name\ncalloc osdmenu_item: calloc newitem\n"
    "close data_file\nclose meta_file\nopen data_file\nopen meta_file\nread data_file\nread meta_file\n";
static const std::string ITEMS =
    "calloc item_value txt viewbitmap bitmp: calloc item_value txt viewbitmap bitmap\n"
    "calloc new_itemvalue\ncalloc new_itemvalue txt description\ncalloc osdmenu_item view description\n"
    "calloc osdmenu_item view viewbimap bitmap: calloc osdmenu_item view viewbitmap bitmap\n"
    "read item_value txt viewbitmap bitmp from data_file: read item_value txt viewbitmap bitmap data_file\n"
    "read new_itemvalue from meta_file\n";
static const std::string LINES = "calloc osdhelpline viewbimap bitmap: calloc osdhelpline viewbitmap bitmap\n"
                                 "calloc osdmenu_item viewdescription\n";
static const std::string BANKS = "calloc osdmenu_view_bitmap\ncalloc osdmenu_view_bitmap bitmap\n";
static const std::string GLYPHS = "open menuitems_commonchar_bitmap_file\nread menuitems_commonchar_bitmap_file\n";
static const std::string SYMBOLS = "open menuitems_utf16symbol_bitmap_file\nread menuitems_utf16symbol_bitmap_file\n";

static int open_files()
{
    return static_cast<int>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

static void fail_one_by_one(const Loader &loader, Fault fault, const std::string &dir, std::set<std::string> &reports)
{
    const std::regex form(R"((.+) fail:: (.+)\nDBG_ERR:\w+\.cpp (\w+)\[\d{4}\] (.+) fail!\n)");
    const int files = open_files();
    bool failed = true;
    for (int nth = 1; failed; nth++) {
        int result = 0, next_result = 0;
        const std::string err = output_of([&] {
                                    fail_call(fault, nth);
                                    result = loader.load(dir.c_str());
                                    failed = call_failed();
                                    free_all_menuitems();
                                    next_result = loader.load(dir.c_str());
                                    free_all_menuitems();
                                }).err;
        const int expected =
            fault == Fault::Close && failed ? loader.closes.at(static_cast<std::size_t>(nth) - 1) : loader.failed;
        EXPECT_EQ(result, failed ? expected : loader.whole) << nth;
        EXPECT_EQ(next_result, loader.whole) << nth;
        EXPECT_EQ(open_files(), files) << nth;
        std::smatch text;
        if (failed && std::regex_match(err, text, form)) {
            EXPECT_EQ(text[2], fault == Fault::Calloc ? "Cannot allocate memory" : "Input/output error");
            EXPECT_EQ(text[3], loader.name);
            reports.insert(text[1] == text[4] ? text[1].str() : text[1].str() + ": " + text[4].str());
        } else {
            EXPECT_TRUE(err.empty() && (!failed || loader.closes.size() == 1)) << err; // banks close in silence
        }
    }
}

TEST(FaultInjection, EveryFailedCallIsReportedOnceAndTheNextLoadIsWhole)
{
    const Loader loaders[] = {
        {"read2mem_all_menuitems", read2mem_all_menuitems, 0, 0, {0, 0}, SHARED + ITEMS},
        {"read2mem_helpline", read2mem_helpline, 0, -1, {0, -1}, SHARED + LINES},
        {"read2mem_bubbleline", read2mem_bubbleline, 0, -1, {0, -1}, SHARED + LINES},
        {"read2mem_menuitem_commonchar", read2mem_menuitem_commonchar, 600, -1, {600}, BANKS + GLYPHS},
        {"read2mem_menuitem_utf16symbol", read2mem_menuitem_utf16symbol, 0, -1, {0}, BANKS + SYMBOLS}};
    ResourceDirectory directory;
    const Picture picture = {4, 150}; // larger than what is read ahead
    directory.write_items(
        std::vector<Item>(12, {"item", {1}, picture, VALUE_TXT, std::vector<Choice>(4, {"choice", picture})}));
    directory.write_lines(std::vector<Line>(2, {"line", picture}), false);
    directory.write_lines(std::vector<Line>(2, {"line", picture}), true);
    directory.write("c.d", glyph_bank(4, 150));
    directory.write("s.d", block_of(picture, 150) + block_of(picture, 150));
    for (const Loader &loader : loaders) {
        std::set<std::string> reports;
        for (Fault fault : {Fault::Calloc, Fault::Read, Fault::Open, Fault::Close})
            fail_one_by_one(loader, fault, directory.path(), reports);
        std::istringstream expected(loader.reports);
        for (std::string report; std::getline(expected, report);)
            EXPECT_EQ(reports.erase(report), 1u) << loader.name << ": " << report;
        EXPECT_TRUE(reports.empty()) << loader.name << ": " << *reports.begin();
    }
}
