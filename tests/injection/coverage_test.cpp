#include <fstream>
#include <gtest/gtest.h>
#include <set>

#include "support/calls/calls.h"

namespace injection {

TEST(Calls, AreOfEveryExport) {
    std::set<std::string> named, exported;
    for (const calls::Call& call : calls::every_call())
        named.insert(call.name);
    std::ifstream list(ZUL_EXPORTS);
    for (std::string line; std::getline(list, line);)
        if (!line.empty() && line[0] != '#')
            exported.insert(line);
    EXPECT_GT(exported.size(), 100u);
    EXPECT_EQ(named, exported);
}

} // namespace injection
