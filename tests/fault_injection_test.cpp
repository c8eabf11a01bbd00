// Every call of the system fails once in every loader: it is reported, nothing is lost, and the next load is whole.
#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <unistd.h>

#include "resources/glyph_banks.h"
#include "resources/resource_fields.h"
#include "support/faults.h"

using Reports = std::set<std::string>; // what the two lines of a failure say before "fail", once where it is the same

struct Loader {
    const char *name;
    int (*load)(const char *dir);
    int whole, failed;
    std::vector<int> closes; // results when the close of the first and of the second file fails
    Reports shared, own;
};

static const Reports OF_PAIRS = {"calloc osdmenu_item: calloc newitem",
                                 "calloc osdmenu_item name: calloc newitem name",
                                 "open meta_file",
                                 "open data_file",
                                 "read meta_file",
                                 "read data_file",
                                 "close meta_file",
                                 "close data_file"};
static const Reports OF_ITEMS = {
    "calloc osdmenu_item view description",
    "calloc osdmenu_item view viewbimap bitmap: calloc osdmenu_item view viewbitmap bitmap",
    "calloc new_itemvalue",
    "calloc new_itemvalue txt description",
    "calloc item_value txt viewbitmap bitmp: calloc item_value txt viewbitmap bitmap",
    "read new_itemvalue from meta_file",
    "read item_value txt viewbitmap bitmp from data_file: read item_value txt viewbitmap bitmap data_file"};
static const Reports OF_LINES = {"calloc osdmenu_item viewdescription",
                                 "calloc osdhelpline viewbimap bitmap: calloc osdhelpline viewbitmap bitmap"};
static const Reports OF_BANKS = {"calloc osdmenu_view_bitmap", "calloc osdmenu_view_bitmap bitmap", "a silent close"};
static const Reports OF_GLYPHS = {"open menuitems_commonchar_bitmap_file", "read menuitems_commonchar_bitmap_file"};
static const Reports OF_SYMBOLS = {"open menuitems_utf16symbol_bitmap_file", "read menuitems_utf16symbol_bitmap_file"};
static const Loader loaders[] = {
    {"read2mem_all_menuitems", read2mem_all_menuitems, 0, 0, {0, 0}, OF_PAIRS, OF_ITEMS},
    {"read2mem_helpline", read2mem_helpline, 0, -1, {0, -1}, OF_PAIRS, OF_LINES},
    {"read2mem_bubbleline", read2mem_bubbleline, 0, -1, {0, -1}, OF_PAIRS, OF_LINES},
    {"read2mem_menuitem_commonchar", read2mem_menuitem_commonchar, 32, -1, {32}, OF_BANKS, OF_GLYPHS},
    {"read2mem_menuitem_utf16symbol", read2mem_menuitem_utf16symbol, 0, -1, {0}, OF_BANKS, OF_SYMBOLS},
};

// What a load prints on standard error if its nth call of a kind fails, once.
static std::string errors_of(Fault fault, int nth, const std::function<void()> &load)
{
    const auto work = [&] {
        failing = fault;
        calls_to_failure = nth;
        load();
    };
    return output_of(work).err;
}

struct FailedLoad {
    Fault fault;
    std::size_t nth; // call of that kind, from 0
    int result, next_result;
    std::string errors; // of both
};

class FailedCall : public testing::TestWithParam<Loader>
{
    const ResourceDirectory directory;

    int load() const
    {
        const int result = GetParam().load(directory.path().c_str());
        free_all_menuitems();
        return result;
    }

  protected:
    FailedCall()
    {
        const Picture picture = {4, 300}, none = {}; // larger than what is read ahead, or ahead as a whole
        const std::string text(127, 't');            // four of them end where the bytes read ahead do
        std::vector<Choice> choices = {{text, none}, {text, none}, {text, none}, {text, picture}};
        choices.resize(80, {"choice", picture});
        choices.push_back({"last", none});
        directory.write_items({{"item", {1}, picture, VALUE_TXT, choices}});
        for (bool bubbles : {false, true})
            directory.write_lines({{"line", picture}, {"line", picture}, {"last", {1, 2}}}, bubbles);
        prepare_view(directory, 0, 0);
    }

    // Checks a load in which one call fails, with a whole one behind it, for each call of every kind.
    void for_each_call(const std::function<void(const FailedLoad &)> &check) const
    {
        for (Fault fault : {Fault::Calloc, Fault::Read, Fault::Open, Fault::Close})
            for (int nth = 0, left = 0; left < 1; nth++) {
                FailedLoad failed = {fault, static_cast<std::size_t>(nth), 0, 0, ""};
                failed.errors = errors_of(fault, nth + 1, [&] {
                    failed.result = load();
                    left = std::exchange(calls_to_failure, 0);
                    failed.next_result = load();
                });
                if (left < 1)
                    check(failed);
            }
    }
};

TEST_P(FailedCall, IsToldOnceInItsOwnWords)
{
    Reports told, expected = GetParam().shared;
    expected.insert(GetParam().own.begin(), GetParam().own.end());
    for_each_call([&told](const FailedLoad &load) {
        const std::string reason = load.fault == Fault::Calloc ? "Cannot allocate memory" : "Input/output error";
        const std::regex form("(.+) fail:: " + reason + R"(\nDBG_ERR:.+ )" + GetParam().name +
                              R"(\[\d{4}\] (.+) fail!\n)");
        const std::string report = std::regex_replace(load.errors, form, "$1: $2");
        const bool silent = load.fault == Fault::Close && report.empty();
        told.insert(silent ? "a silent close" : std::regex_replace(report, std::regex(R"(^(.+): \1$)"), "$1"));
    });
    EXPECT_EQ(told, expected);
}

TEST_P(FailedCall, DecidesTheResultOfNoOtherLoad)
{
    for_each_call([](const FailedLoad &load) {
        const int expected = load.fault == Fault::Close ? GetParam().closes.at(load.nth) : GetParam().failed;
        EXPECT_EQ(std::pair(load.result, load.next_result), std::pair(expected, GetParam().whole)) << load.errors;
    });
}

TEST_P(FailedCall, LeavesNoFileOpen)
{
    const auto open_files = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const auto before = open_files();
    for_each_call([&](const FailedLoad &load) { EXPECT_EQ(open_files(), before) << load.errors; });
}
INSTANTIATE_TEST_SUITE_P(Of, FailedCall, testing::ValuesIn(loaders), [](const auto &row) { return row.param.name; });

static const ResourceDirectory files;

TEST(FailedRead, GivesThePixelsThatCameBeforeIt)
{
    files.write("c.d", glyph_bank(4, 150)); // the first read ends 488 bytes into the pixels
    errors_of(Fault::Read, 2, [] { read2mem_menuitem_commonchar(files.path().c_str()); });
    EXPECT_EQ(std::string(glyph_at(0)->bitmap, 600), std::string(488, '\1') + std::string(112, '\0'));
}

TEST(FailedRead, GivesAGlyphWithoutPixelsWhereItCutsItsRecord)
{
    files.write("c.d", glyph_bank(4, 120)); // the first read ends 8 bytes into the second record
    errors_of(Fault::Read, 2, [] { read2mem_menuitem_commonchar(files.path().c_str()); });
    EXPECT_EQ(std::count(osdmenu_commonchar_viewbitmap, osdmenu_commonchar_viewbitmap + GLYPH_COUNT, nullptr), 91);
}

TEST(FailedRead, GivesTheRecordThatItCuts)
{
    files.write_items(std::vector<Item>(30, {"item", {1}})); // the first read ends 64 bytes into the 25th
    errors_of(Fault::Read, 3, [] { read2mem_all_menuitems(files.path().c_str()); });
    int count = 0;
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        count++;
    EXPECT_EQ(count, 25);
}

TEST(FailedRead, IsToldByTheFieldBehindTheOneItCuts)
{
    const std::vector<Choice> choices(71, {"", {}}); // the first read ends 8 bytes into the last of them
    files.write_items({{"item", {1}, {}, VALUE_TXT, choices}, {"next", {2}}});
    const std::string errors = errors_of(Fault::Read, 3, [] { read2mem_all_menuitems(files.path().c_str()); });
    EXPECT_EQ(errors.substr(0, errors.find('\n')), "read meta_file fail:: Input/output error");
}

TEST(ClosedInput, LeavesItsDescriptorToAFile)
{
    files.write("s.d", "");
    close(STDIN_FILENO);
    EXPECT_EQ(read2mem_menuitem_utf16symbol(files.path().c_str()), 0);
}

TEST(FailedMemory, ForPixelsFailsTheLoadUnlessThereAreNone)
{
    for (auto [size, expected] : {std::pair{0U, 0}, {1U, -1}}) {
        int result = 1;
        files.write("s.d", block_of({1, size}, size));
        errors_of(Fault::Calloc, 2, [&] { result = read2mem_menuitem_utf16symbol(files.path().c_str()); });
        EXPECT_EQ(std::tuple(result, symbol_at(0)), std::tuple(expected, nullptr)) << size;
    }
}

TEST(Picture, AsksForMemoryWhileItsSpareBytesFit32Bits)
{
    for (auto [size, calls_left] : {std::pair{4294967291U, 0}, {4294967292U, 1}}) {
        errors_of(Fault::Calloc, 1, [size = size] { allocate_picture(size); });
        EXPECT_EQ(calls_to_failure, calls_left) << size;
    }
}
