// Every call of the system fails once in every loader: it is reported, nothing is lost, and the next load is whole.
#include <gtest/gtest.h>
#include <set>

#include "resources/glyph_banks.h"
#include "support/faults.h"

struct Loader {
    const char *name;
    int (*load)(const char *dir);
    int whole, failed;
    std::vector<int> closes; // results, as those above, when the close of the first and of the second file fails
    std::string reports;     // what its lines say before "fail", that of perror first where the two differ
};

static const std::string SHARED = // by items and lines
    "calloc osdmenu_item: calloc newitem\ncalloc osdmenu_item name: calloc newitem name\n"
    "open meta_file\nopen data_file\nread meta_file\nread data_file\nclose meta_file\nclose data_file\n";
static const std::string ITEMS =
    "calloc osdmenu_item view description\ncalloc new_itemvalue txt description\nread new_itemvalue from meta_file\n"
    "calloc osdmenu_item view viewbimap bitmap: calloc osdmenu_item view viewbitmap bitmap\ncalloc new_itemvalue\n"
    "calloc item_value txt viewbitmap bitmp: calloc item_value txt viewbitmap bitmap\n"
    "read item_value txt viewbitmap bitmp from data_file: read item_value txt viewbitmap bitmap data_file\n";
static const std::string LINES = "calloc osdmenu_item viewdescription\n"
                                 "calloc osdhelpline viewbimap bitmap: calloc osdhelpline viewbitmap bitmap\n";
static const std::string BANKS = "calloc osdmenu_view_bitmap\ncalloc osdmenu_view_bitmap bitmap\n";
static const std::string GLYPHS = "open menuitems_commonchar_bitmap_file\nread menuitems_commonchar_bitmap_file\n";
static const std::string SYMBOLS = "open menuitems_utf16symbol_bitmap_file\nread menuitems_utf16symbol_bitmap_file\n";

static void fail_one_by_one(const Loader &loader, Fault fault, const char *dir, std::set<std::string> &reports)
{
    failing = fault;
    const std::string reason = fault == Fault::Calloc ? "Cannot allocate memory" : "Input/output error";
    const std::regex form("(.+) fail:: " + reason + R"(\nDBG_ERR:.+ )" + loader.name + R"(\[\d{4}\] (.+) fail!\n)");
    const auto open_files = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const auto files = open_files();
    for (int nth = 0, result = 0, next = 0, left = 0; left < 1; nth++) {
        const auto load_twice = [&] {
            calls_to_failure = nth + 1;
            result = loader.load(dir);
            left = std::exchange(calls_to_failure, 0);
            free_all_menuitems();
            next = loader.load(dir);
            free_all_menuitems();
        };
        const std::string err = output_of(load_twice).err;
        const int due = left > 0 ? loader.whole : fault == Fault::Close ? loader.closes.begin()[nth] : loader.failed;
        EXPECT_EQ(std::tuple(result, next, open_files()), std::tuple(due, loader.whole, files)) << nth;
        if (std::smatch text; left < 1 && std::regex_match(err, text, form))
            reports.insert(text[1].str() + (text[1] == text[2] ? "" : ": " + text[2].str()));
        else
            EXPECT_TRUE(err.empty() && (left > 0 || loader.closes.size() == 1)) << err; // banks close in silence
    }
}

TEST(FaultInjection, EveryFailedCallIsReportedOnceAndTheNextLoadIsWhole)
{
    const Loader loaders[] = {
        {"read2mem_all_menuitems", read2mem_all_menuitems, 0, 0, {0, 0}, SHARED + ITEMS},
        {"read2mem_helpline", read2mem_helpline, 0, -1, {0, -1}, SHARED + LINES},
        {"read2mem_bubbleline", read2mem_bubbleline, 0, -1, {0, -1}, SHARED + LINES},
        {"read2mem_menuitem_commonchar", read2mem_menuitem_commonchar, 32, -1, {32}, BANKS + GLYPHS},
        {"read2mem_menuitem_utf16symbol", read2mem_menuitem_utf16symbol, 0, -1, {0}, BANKS + SYMBOLS}};
    ResourceDirectory directory;
    const Picture picture = {4, 300}, none = {}; // larger than what is read ahead, or ahead as a whole
    const std::string text(127, 't');            // four of them end where the bytes read ahead do
    std::vector<Choice> choices = {{text, none}, {text, none}, {text, none}, {text, picture}};
    choices.resize(80, {"choice", picture});
    choices.push_back({"last", none});
    directory.write_items({{"item", {1}, picture, VALUE_TXT, choices}});
    for (bool bubbles : {false, true})
        directory.write_lines({{"line", picture}, {"line", picture}, {"last", {1, 2}}}, bubbles);
    prepare_view(directory, 0, 0);
    const std::regex line(".+");
    for (const Loader &loader : loaders) {
        std::set<std::string> reports;
        for (Fault fault : {Fault::Calloc, Fault::Read, Fault::Open, Fault::Close})
            fail_one_by_one(loader, fault, directory.path().c_str(), reports);
        const std::sregex_token_iterator expected(loader.reports.begin(), loader.reports.end(), line);
        EXPECT_EQ(reports, std::set<std::string>(expected, {})) << loader.name;
    }
}

// The nth read fails, once.
static std::string printed_with_failing_read(int nth, const std::function<void()> &load)
{
    failing = Fault::Read;
    calls_to_failure = nth;
    return printed(load);
}

TEST(BrokenFile, AGlyphKeepsThePixelsBeforeTheFailureAndTheNextReadFails)
{
    const ResourceDirectory directory;
    directory.write("c.d", glyph_bank(4, 150)); // the first read ends 488 bytes into the pixels
    printed_with_failing_read(2, [&] { read2mem_menuitem_commonchar(directory.path().c_str()); });
    ASSERT_NE(osdmenu_commonchar_viewbitmap[0], nullptr);
    EXPECT_EQ(std::string(osdmenu_commonchar_viewbitmap[0]->bitmap, 600),
              std::string(488, '\1') + std::string(112, '\0'));
    EXPECT_EQ(osdmenu_commonchar_viewbitmap[1], nullptr);
}

TEST(BrokenFile, ARecordCutByAFailureCountsAndTheNextOneTellsIt)
{
    const ResourceDirectory directory;
    directory.write_items(std::vector<Item>(30, {"item", {1}})); // the first read ends 64 bytes into the 25th
    const std::string lines = printed_with_failing_read(3, [&] { read2mem_all_menuitems(directory.path().c_str()); });
    EXPECT_EQ(lines_with(lines, "read meta_file fail:: Input/output error\n"), 1);
    int count = 0;
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        count++;
    EXPECT_EQ(count, 25);
}

TEST(BrokenFile, AFailureIsToldInTheWordsOfTheFieldThatMeetsItFirst)
{
    const ResourceDirectory directory;
    const std::vector<Choice> choices(71, {"", {}}); // the first read ends 8 bytes into the last of them
    directory.write_items({{"item", {1}, {}, VALUE_TXT, choices}, {"next", {2}}});
    const std::string lines = printed_with_failing_read(3, [&] { read2mem_all_menuitems(directory.path().c_str()); });
    EXPECT_EQ(lines_with(lines, "ERR read2mem_all_menuitems: read meta_file fail!\n"), 1);
    EXPECT_EQ(lines_with(lines, "read new_itemvalue from meta_file fail"), 0);
}
