#include "store/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "common/text.h"

namespace fs = std::filesystem;

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
    return path.string() + ".new-" + std::to_string(getpid());
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

void replace_directory(const std::string &directory, const std::map<std::string, std::string> &files)
{
    fs::path target = fs::absolute(directory).lexically_normal();
    if (!target.has_filename())
        target = target.parent_path();
    // A slip of the hand at -o must not cost a directory of letters.
    if (fs::exists(target) && !(fs::is_directory(target) && (fs::is_empty(target) || fs::exists(target / "menu.json"))))
        throw Failure(directory + ": holds something else than a menu, it is left alone");
    fs::create_directories(target.parent_path());
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
    std::string made = beside(path);
    try {
        write_file(made, content, path);
        fs::rename(made, path);
    } catch (...) {
        std::error_code ignored;
        fs::remove(made, ignored);
        throw;
    }
}
