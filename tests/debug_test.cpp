// The direct channel: what its lines look like, where they go, and when.
#include <sys/wait.h>
#include <unistd.h>

#include "core/debug.h"
#include "support/host.h"

TEST(DirectLine, GoesOutAtOnceBehindThePrefixOfItsStream)
{
    const struct {
        void (*print)(const char *file, const char *function, int line, const char *format, ...);
        std::string out, err;
    } rows[] = {{dbg_info, "DBG_INFO:a.cpp f[9876] text", ""},
                {dbg_out_info, "DBG_OUT_INFO:a.cpp f[9876] text", ""},
                {dbg_err, "", "DBG_ERR:a.cpp f[9876] text"}};
    for (const auto &row : rows) {
        const Output output = output_of([&row] {
            if (const pid_t child = fork(); child != 0)
                waitpid(child, nullptr, 0);
            else
                row.print("a.cpp", "f", 9876, "%s", "text"), _exit(0); // an end that flushes nothing
        });
        EXPECT_EQ(std::pair(output.out, output.err), std::pair(row.out, row.err));
    }
}

static std::string line_of(const std::string &format, const std::string &argument)
{
    return output_of([&] { dbg_info("a.cpp", "f", 7, format.c_str(), argument.c_str()); }).out;
}

TEST(DirectLine, Ends255BytesIntoItsFormat)
{
    EXPECT_EQ(line_of(std::string(300, 'm'), ""), "DBG_INFO:a.cpp f[0007] " + std::string(232, 'm'));
}

TEST(DirectLine, TakesAnArgumentOfAnyLength)
{
    EXPECT_EQ(line_of("%s.", std::string(300, 'a')), "DBG_INFO:a.cpp f[0007] " + std::string(300, 'a') + ".");
}
