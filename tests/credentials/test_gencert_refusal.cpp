// gencert outside factory mode must stop before it touches the device. An
// empty mode is refused too, a case the factory-data commands cannot set up.
#include <gtest/gtest.h>

#include <string>

#include "credentials/misc.h"
#include "fake_platform.h"

namespace {

TEST(Gencert, RefusedUnlessTheModeStartsWithZero) {
    for (const char* mode : {"1", "", "x"}) {
        fake::reset();
        fake::platform().fields[0] = mode;
        testing::internal::CaptureStdout();
        EXPECT_EQ(gen_self_signed_cert(), -1) << "mode '" << mode << "'";
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "*ERROR* misc:gen_self_signed_cert():97 gencert can only be executed in factory mode\n");
        EXPECT_TRUE(fake::platform().commands.empty());
        EXPECT_EQ(fake::platform().fields[32], "");
    }
}

}  // namespace
