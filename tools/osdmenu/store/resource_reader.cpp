#include "store/resource_reader.h"

#include <cstring>
#include <optional>

#include "common/text.h"
#include "render/pixels.h"
#include "resources/glyph_banks.h"

namespace
{

constexpr unsigned int MAX_SIDE = MAX_PICTURE_SIDE;

using Contents = std::map<std::string, std::string>; // by file name

struct FaultFound {
    Fault fault;
};

// One file and how far it has been read. Whatever doesn't fit throws FaultFound.
class Cursor
{
  public:
    Cursor(const Contents &files, const std::string &name) : file(name), content(files.at(name)) {}

    [[noreturn]] void fail(const std::string &text) const
    {
        throw FaultFound{{file, position, text}};
    }
    // For what the last record says.
    [[noreturn]] void fail_in_record(const std::string &text) const
    {
        throw FaultFound{{file, last_record, text}};
    }

    bool at_end() const
    {
        return position == content.size();
    }
    size_t offset() const
    {
        return position;
    }
    size_t left() const
    {
        return content.size() - position;
    }

    template <class Record> Record record(const std::string &what)
    {
        static_assert(std::is_trivially_copyable_v<Record>);
        if (left() < sizeof(Record))
            fail(what + " is cut short: " + std::to_string(left()) + " of " + std::to_string(sizeof(Record)) +
                 " bytes");
        Record record;
        std::memcpy(&record, content.data() + position, sizeof record);
        last_record = position;
        position += sizeof record;
        return record;
    }

    // Up to its zero, or as long as any may be without one.
    std::string string(const std::string &what)
    {
        size_t end = content.find('\0', position);
        size_t length = std::min(end, content.size()) - position;
        if (length >= TEXT_LENGTH) {
            std::string text = content.substr(position, TEXT_LENGTH);
            position += TEXT_LENGTH;
            return text;
        }
        if (end == std::string::npos)
            fail(what + " has no end");
        std::string text = content.substr(position, length);
        position += length + 1;
        return text;
    }

    // `pitch` is what the file holds per row, in bytes. The size stands in the last record of `meta`.
    ReadPicture picture(const Cursor &meta, const osdmenu_view_bitmap &size, unsigned int pitch,
                        const std::string &what)
    {
        if (size.height > MAX_SIDE || pitch > MAX_SIDE * 2 || size.width > MAX_SIDE * 2)
            meta.fail_in_record(what + " has an absurd size: " + std::to_string(size.height) + " rows of " +
                                std::to_string(pitch) + " bytes");
        if (size.width % 2 != 0)
            meta.fail_in_record(what + " splits a pixel: " + std::to_string(size.width) + " bytes a row");
        size_t bytes = size_t{size.height} * pitch;
        if (left() < bytes)
            fail(what + " is cut short: " + std::to_string(left()) + " of " + std::to_string(bytes) + " bytes");
        ReadPicture picture{size, content.substr(position, bytes), position};
        picture.size.bitmap = nullptr;
        position += bytes;
        return picture;
    }

    void expect_end(const std::string &what) const
    {
        if (!at_end())
            fail(std::to_string(left()) + " bytes behind the last " + what);
    }

  private:
    std::string file;
    const std::string &content;
    size_t position = 0;
    size_t last_record = 0;
};

} // namespace

// The bound keeps a count of billions from being walked: each choice takes a record.
static void read_choices(Cursor &meta, Cursor &data, const osdmenu_item &image, ReadItem &item)
{
    int count;
    std::memcpy(&count, &image.item_values.u, sizeof count);
    if (count < 0 || static_cast<size_t>(count) > meta.left() / sizeof(osdmenu_item_value))
        meta.fail_in_record(in_quotes(item.name) + " announces " + std::to_string(count) +
                            " choices, more than the file holds");
    for (int i = 0; i < count; i++) {
        std::string what = "choice " + std::to_string(i) + " of " + in_quotes(item.name);
        ReadChoice read{{meta.offset(), data.offset()}, {}, {}};
        auto choice = meta.record<osdmenu_item_value>(what);
        read.text = data.string("the text of " + what);
        const osdmenu_view_bitmap &size = choice.u.txt.viewbitmap;
        read.picture = data.picture(meta, size, size.width, "the picture of " + what);
        item.choices.push_back(read);
    }
}

static ReadItem read_item(Cursor &meta, Cursor &data, size_t number)
{
    ReadItem item;
    std::string what = "item " + std::to_string(number);
    item.place = {meta.offset(), data.offset()};
    auto image = meta.record<osdmenu_item>(what);
    item.position = image.position;
    item.value_type = image.item_values.type;
    item.current = image.item_values.current;
    // The two files are read in step, record by record.
    item.name = data.string("the name of " + what);
    item.text = data.string("the text of " + in_quotes(item.name));
    const osdmenu_view_bitmap &size = image.view.viewbitmap;
    item.picture = data.picture(meta, size, size.width, "the picture of " + in_quotes(item.name));
    if (item.value_type > VALUE_PERCENTAGE)
        meta.fail_in_record(in_quotes(item.name) + " has no known type of value: " + std::to_string(item.value_type));
    if (item.value_type == VALUE_TXT)
        read_choices(meta, data, image, item);
    else if (item.value_type != VALUE_NONE)
        item.number = image.item_values.u.number;
    return item;
}

static void read_items(Cursor &meta, Cursor &data, Resources &resources)
{
    while (!meta.at_end())
        resources.items.push_back(read_item(meta, data, resources.items.size()));
    data.expect_end("item");
    if (resources.items.empty())
        meta.fail("there is no item");
}

// An empty picture would end the library's load at that line.
static ReadPicture read_line_picture(const Cursor &meta, Cursor &data, const osdmenu_view_bitmap &size,
                                     const std::string &name)
{
    if (size.height == 0 || size.width == 0)
        meta.fail_in_record("the picture of " + in_quotes(name) + " is empty");
    return data.picture(meta, size, size.width, "the picture of " + in_quotes(name));
}

template <class Record> static void read_lines(Cursor &meta, Cursor &data, std::vector<ReadLine> &lines)
{
    while (!meta.at_end()) {
        std::string what = "line " + std::to_string(lines.size());
        ReadLine line;
        line.place = {meta.offset(), data.offset()};
        auto image = meta.record<Record>(what);
        line.name = data.string("the name of " + what);
        line.text = data.string("the text of " + in_quotes(line.name));
        line.picture = read_line_picture(meta, data, image.viewbitmap, line.name);
        if constexpr (std::is_same_v<Record, osdbubbleline>)
            line.level = image.level;
        lines.push_back(line);
    }
    data.expect_end("line");
}

static void read_bank(Cursor &file, std::vector<ReadPicture> &bank, size_t most, const char *kind)
{
    while (!file.at_end() && bank.size() < most) {
        std::string what = std::string(kind).append(" ").append(std::to_string(bank.size()));
        auto size = file.record<osdmenu_view_bitmap>(what);
        if (size.width > size.stride)
            file.fail_in_record(what + " is wider than its stride: " + std::to_string(size.width) + " and " +
                                std::to_string(size.stride) + " bytes");
        bank.push_back(file.picture(file, size, size.stride, "the picture of " + what));
    }
    file.expect_end(kind);
}

static void read_glyphs(Cursor &file, Resources &resources)
{
    read_bank(file, resources.glyphs, GLYPH_COUNT, "glyph");
    if (resources.glyphs.size() < GLYPH_COUNT)
        file.fail("there are " + std::to_string(resources.glyphs.size()) + " glyphs of " + std::to_string(GLYPH_COUNT));
}

static void read_symbols(Cursor &file, Resources &resources)
{
    read_bank(file, resources.symbols, SYMBOLS_IN_FILE, "symbol");
    if (resources.symbols.size() < SYMBOLS_OF_MENU)
        file.fail("there are " + std::to_string(resources.symbols.size()) + " symbols of at least " +
                  std::to_string(SYMBOLS_OF_MENU));
}

FileSource files_of_directory(const std::string &directory)
{
    return [directory](const std::string &name) { return read_file(directory + "/" + name); };
}

FileSource files_in_memory(const std::map<std::string, std::string> &files)
{
    return [&files](const std::string &name) {
        auto found = files.find(name);
        return found == files.end() ? std::nullopt : std::optional(found->second);
    };
}

static Contents read_files(const FileSource &source, Resources &resources)
{
    Contents files;
    for (const char *name : RESOURCE_FILES) {
        std::optional<std::string> content = source(name);
        if (!content) {
            resources.faults.push_back({name, 0, "there is no such file, or it cannot be read"});
            continue;
        }
        resources.file_sizes[name] = content->size();
        resources.bytes += content->size();
        files[name] = std::move(*content);
    }
    return files;
}

Resources read_resources(const FileSource &source)
{
    Resources resources;
    const Contents files = read_files(source, resources);
    // A fault ends its own pair only: the other files are in step with nothing but themselves.
    auto read_pair = [&](const char *meta_name, const char *data_name, auto read) {
        if (!files.contains(meta_name) || !files.contains(data_name))
            return;
        Cursor meta(files, meta_name), data(files, data_name);
        try {
            read(meta, data);
        } catch (const FaultFound &found) {
            resources.faults.push_back(found.fault);
        }
    };
    read_pair("m.d", "b.d", [&](Cursor &meta, Cursor &data) { read_items(meta, data, resources); });
    read_pair("hm.d", "hb.d",
              [&](Cursor &meta, Cursor &data) { read_lines<osdhelpline>(meta, data, resources.help_lines); });
    read_pair("bm.d", "bb.d",
              [&](Cursor &meta, Cursor &data) { read_lines<osdbubbleline>(meta, data, resources.bubbles); });
    read_pair("c.d", "c.d", [&](Cursor &file, Cursor &) { read_glyphs(file, resources); });
    read_pair("s.d", "s.d", [&](Cursor &file, Cursor &) { read_symbols(file, resources); });
    return resources;
}
