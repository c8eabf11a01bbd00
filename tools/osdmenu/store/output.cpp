#include "store/output.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "common/text.h"
#include "core/config.h"
#include "store/resource_reader.h"

namespace fs = std::filesystem;

// Between a name and the process that writes what will have that name.
static constexpr char NEW[] = ".new-";

static void write_file(const fs::path &path, const std::string &content, const std::string &shown_as)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    if (!out)
        throw Failure(shown_as + ": cannot be written");
}

// Beside the target, since a rename can't leave the file system.
static std::string beside(const fs::path &path)
{
    return path.string() + NEW + std::to_string(getpid());
}

// One exchange where the file system can do it, so that no moment is without a directory.
static void put_in_place(const fs::path &made, const fs::path &directory)
{
    if (!fs::exists(directory)) {
        fs::rename(made, directory);
        return;
    }
    if (renameat2(AT_FDCWD, made.c_str(), AT_FDCWD, directory.c_str(), RENAME_EXCHANGE) == 0) {
        fs::remove_all(made);
        return;
    }
    // Two renames where the file system has no exchange: the old result stays until the new one stands.
    fs::path old = directory.string() + ".old-" + std::to_string(getpid());
    fs::rename(directory, old);
    fs::rename(made, directory);
    fs::remove_all(old);
}

static bool is_ours(const fs::path &file)
{
    auto names = std::begin(RESOURCE_FILES);
    bool is_resource = std::find(names, std::end(RESOURCE_FILES), file.filename()) != std::end(RESOURCE_FILES);
    return file == "menu.json" || file == CONFIG_FILE ||
           (is_resource && !file.parent_path().empty() && file.parent_path().parent_path().empty());
}

// A slip of the hand at -o must not cost a directory of letters.
static void refuse_strangers(const fs::path &target, const std::string &shown_as)
{
    if (!fs::exists(target))
        return;
    if (!fs::is_directory(target))
        throw Failure(shown_as + ": is no directory, it is left alone");
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(target))
        if (!entry.is_directory() && !is_ours(entry.path().lexically_relative(target)))
            throw Failure(shown_as + ": holds " + entry.path().lexically_relative(target).string() +
                          ", which no build made; it is left alone");
}

// What a run that was killed left beside the target.
static void remove_leftovers(const fs::path &target)
{
    std::string start = target.filename().string() + NEW;
    const fs::path directory = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::error_code ignored; // one that may not be listed can be written to all the same
    for (const fs::directory_entry &entry : fs::directory_iterator(directory, ignored)) {
        std::string name = entry.path().filename().string();
        int process = name.starts_with(start) ? std::atoi(name.c_str() + start.size()) : 0;
        if (process > 0 && kill(process, 0) != 0 && errno == ESRCH)
            fs::remove_all(entry.path(), ignored);
    }
}

void replace_directory(const std::string &directory, const std::map<std::string, std::string> &files)
{
    // A link stays one: what it leads to is replaced.
    fs::path target = fs::weakly_canonical(fs::absolute(directory));
    if (!target.has_filename())
        target = target.parent_path();
    refuse_strangers(target, directory);
    fs::create_directories(target.parent_path());
    remove_leftovers(target);
    fs::path made = beside(target);
    try {
        for (const auto &[name, content] : files) {
            fs::create_directories((made / name).parent_path());
            write_file(made / name, content, (target / name).string());
        }
        put_in_place(made, target);
    } catch (...) {
        std::error_code ignored;
        fs::remove_all(made, ignored);
        throw;
    }
}

void replace_file(const std::string &path, const std::string &content)
{
    // A device or a pipe is written to, and a link leads to the file that is replaced.
    if (fs::exists(path) && !fs::is_regular_file(path)) {
        write_file(path, content, path);
        return;
    }
    fs::path target = fs::exists(path) ? fs::canonical(path) : fs::path(path);
    std::string made = beside(target);
    try {
        remove_leftovers(target);
        write_file(made, content, path);
        fs::rename(made, target);
    } catch (...) {
        std::error_code ignored;
        fs::remove(made, ignored);
        throw;
    }
}
