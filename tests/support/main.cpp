// The main of every test program. A process has one menu, and a test is to find it as the first call of a host would:
// the program starts itself anew for each test, in the order asked for. A single test runs in this process, where a
// debugger finds it.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using Names = std::vector<std::string>;

// Listing the tests is what marks those that the filter leaves.
static Names chosen_tests()
{
    GTEST_FLAG_SET(list_tests, true);
    testing::internal::CaptureStdout();
    const int listed = RUN_ALL_TESTS();
    testing::internal::GetCapturedStdout();
    GTEST_FLAG_SET(list_tests, false);
    Names names;
    const testing::UnitTest &program = *testing::UnitTest::GetInstance();
    for (int i = 0; listed == 0 && i < program.total_test_suite_count(); i++) {
        const testing::TestSuite &suite = *program.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); j++)
            if (suite.GetTestInfo(j)->should_run())
                names.push_back(suite.name() + std::string(".") + suite.GetTestInfo(j)->name());
    }
    return names;
}

static void shuffle(Names &names)
{
    const int asked = GTEST_FLAG_GET(random_seed);
    const unsigned seed = asked ? static_cast<unsigned>(asked) : std::random_device()() % 99999 + 1;
    std::printf("The seed of the order is %u.\n", seed);
    std::shuffle(names.begin(), names.end(), std::mt19937(seed));
}

static bool passes_in_a_process_of_its_own(const std::string &name, std::vector<char *> arguments)
{
    std::string filter = "--gtest_filter=" + name, brief = "--gtest_brief=1";
    arguments.insert(arguments.end(), {brief.data(), filter.data(), nullptr}); // of two filters the last holds
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        unsetenv("GTEST_TOTAL_SHARDS"); // the share of this program has been chosen
        unsetenv("GTEST_SHARD_INDEX");
        execv("/proc/self/exe", arguments.data());
        _exit(127);
    }
    int status = -1;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status))
        std::printf("%s was ended by signal %d\n", name.c_str(), WTERMSIG(status));
    return status == 0;
}

int main(int argc, char **argv)
{
    const std::vector<char *> arguments(argv, argv + argc);
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    Names names = chosen_tests();
    if (names.size() == 1)
        return RUN_ALL_TESTS();
    if (GTEST_FLAG_GET(shuffle))
        shuffle(names);
    Names failed;
    for (const std::string &name : names)
        if (!passes_in_a_process_of_its_own(name, arguments))
            failed.push_back(name);
    for (const std::string &name : failed)
        std::printf("[  FAILED  ] %s\n", name.c_str());
    std::printf("%zu of %zu tests passed\n", names.size() - failed.size(), names.size());
    return failed.empty() ? 0 : 1;
}
