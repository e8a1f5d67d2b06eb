// The dispatch tables against what the build links: a row of an area that
// has landed must reach its handler.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "shell/dispatch.h"

namespace {

// Commands of the areas whose code has not landed yet, an area a line; an
// area that lands deletes its line (and drops FT_NOT_BUILT_YET from its header).
const std::vector<std::string> kNotBuiltYet = {
};

TEST(Dispatch, EveryRowOfALandedAreaReachesItsHandler) {
    std::vector<std::string> missing = ft::unlinked_commands();
    std::vector<std::string> expected = kNotBuiltYet;
    std::sort(missing.begin(), missing.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(missing, expected);
}

}  // namespace
