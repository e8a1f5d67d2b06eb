// gencert outside factory mode, and when the shell cannot be run: the command
// must stop before touching the device, or clean up only what exists.
#include <gtest/gtest.h>

#include <string>

#include "credentials/misc.h"
#include "fake_platform.h"

namespace {

class Gencert : public ::testing::Test {
protected:
    void SetUp() override { fake::reset(); }
};

TEST_F(Gencert, RefusedUnlessTheModeStartsWithZero) {
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

TEST_F(Gencert, UnreadableModeStopsAtOnce) {
    fake::platform().read_fails = true;
    testing::internal::CaptureStdout();
    EXPECT_EQ(gen_self_signed_cert(), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*ERROR* misc:gen_self_signed_cert():92 Unable to read CONFIGDATA_OPERATIONAL_MODE\n");
    EXPECT_TRUE(fake::platform().commands.empty());
}

TEST_F(Gencert, ShellThatCannotRunFailsWithoutRemovingAbsentFiles) {
    // The host has no /reserved: the first step must make the directory, and
    // the clean-up then finds none of the files and runs nothing more.
    fake::platform().fields[0] = "0";
    fake::platform().system_result = -1;
    testing::internal::CaptureStdout();
    EXPECT_EQ(gen_self_signed_cert(), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*ERROR* misc:gen_self_signed_cert():104 Unable to create /reserved/cp\n");
    ASSERT_EQ(fake::platform().commands.size(), 1u);
    EXPECT_EQ(fake::platform().commands[0], "mkdir /reserved/cp");
}

TEST_F(Gencert, RegenerationNeedsTheBundleFirst) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(regen_fips_signed_cert(), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*ERROR* misc:regen_fips_signed_cert():318 Factory cert not present return NULL\n");
    EXPECT_TRUE(fake::platform().commands.empty());
}

}  // namespace
