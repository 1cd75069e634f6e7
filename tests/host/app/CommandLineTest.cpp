#include "host/app/CommandLine.h"

#include <gtest/gtest.h>

#include <sstream>

namespace host::app {
namespace {

TEST(CommandLineTest, AnswersHelpVersionAndMistakesAndLetsTheRestThrough) {
    const std::string usage = CommandLine::usage();
    const struct {
        std::vector<std::string> arguments;
        std::optional<int> status;
        std::string out;
        std::string err;
    } cases[] = {
        {{}, std::nullopt, "", ""},
        {{"config"}, std::nullopt, "", ""},
        {{"config", "--help"}, std::nullopt, "", ""},
        {{"--help"}, 0, usage, ""},
        {{"-h"}, 0, usage, ""},
        {{"--version"}, 0, "nivalis " NIVALIS_VERSION "\n", ""},
        {{"foo"}, 2, "", "nivalis: unknown command 'foo'\n" + usage},
        {{"--frobnicate"}, 2, "", "nivalis: unknown option '--frobnicate'\n" + usage},
        {{"-platform", "xcb"}, 2, "", "nivalis: unknown option '-platform'\n" + usage},
        {{"--help", "now"}, 2, "", "nivalis: unexpected argument 'now'\n" + usage},
        {{"--version", "-x"}, 2, "", "nivalis: unknown option '-x'\n" + usage},
        {{""}, 2, "", "nivalis: unknown command ''\n" + usage},
    };
    for (const auto& c : cases) {
        std::ostringstream out;
        std::ostringstream err;
        EXPECT_EQ(CommandLine::answer(c.arguments, out, err), c.status) << testing::PrintToString(c.arguments);
        EXPECT_EQ(out.str(), c.out);
        EXPECT_EQ(err.str(), c.err);
    }
}

} // namespace
} // namespace host::app
