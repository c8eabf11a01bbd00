// The command-line tool, run as a person runs it, in a directory of the test's own.
#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;

inline std::string read(const fs::path &path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// A menu around its items, for one language.
inline std::string menu(const std::string &items, const std::string &more = "", const std::string &font = "DejaVu Sans")
{
    return "device_directory: /res/\nlanguages: [en]\nfonts: [{family: " + font + ", package: fonts-dejavu-core}]\n" +
           more + "items:\n  - {name: title, text: T}\n" + items;
}

struct Tool : testing::Test {
    const fs::path dir = fs::temp_directory_path() / ("osdmenu-" + std::to_string(getpid()));
    std::string out, err;

    Tool()
    {
        fs::create_directories(dir / "m/po");
    }
    ~Tool() override
    {
        fs::remove_all(dir);
    }

    void write(const std::string &path, const std::string &content) const
    {
        std::ofstream(dir / path) << content;
    }
    // The exit status of shell commands, in which `osdmenu` is the tool that was built.
    int run(const std::string &commands)
    {
        const std::string script = "exec >out.txt 2>err.txt; osdmenu() { " OSDMENU_TOOL " \"$@\"; }; " + commands;
        const int status = std::system(("cd '" + dir.string() + "'; " + script).c_str());
        out = read(dir / "out.txt");
        err = read(dir / "err.txt");
        return WEXITSTATUS(status);
    }
    // From m/menu.yaml to made/.
    int build(const std::string &content)
    {
        write("m/menu.yaml", content);
        return run("osdmenu build m/menu.yaml -o made");
    }
};
