// The device key's text form and the MAC text it is derived from.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <random>
#include <string>

#include "credentials/fact_device_key.h"
#include "fake_platform.h"

namespace {

using ft::cred::base64_buffer_size;

class Credentials : public ::testing::Test {
protected:
    void SetUp() override { fake::reset(); }
};

// Plain RFC 4648 base64, then a newline after every 64 characters and after a
// last short line: the shape the stations' tools expect of the key text.
std::string reference_base64(const std::string& in) {
    static constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string flat;
    for (std::size_t i = 0; i < in.size(); i += 3) {
        const std::size_t left = in.size() - i;
        unsigned v = static_cast<unsigned char>(in[i]) << 16;
        if (left > 1) v |= static_cast<unsigned char>(in[i + 1]) << 8;
        if (left > 2) v |= static_cast<unsigned char>(in[i + 2]);
        flat += kAlphabet[(v >> 18) & 63];
        flat += kAlphabet[(v >> 12) & 63];
        flat += left > 1 ? kAlphabet[(v >> 6) & 63] : '=';
        flat += left > 2 ? kAlphabet[v & 63] : '=';
    }
    std::string lined;
    for (std::size_t i = 0; i < flat.size(); i += 64) lined += flat.substr(i, 64) + "\n";
    return lined;
}

std::string encode(const std::string& in) {
    auto text = do_base64_encode(reinterpret_cast<const unsigned char*>(in.data()), static_cast<int>(in.size()));
    return text ? std::string(text.get()) : std::string("<null>");
}

TEST_F(Credentials, Base64BufferIsExactlyLargeEnoughForEveryLength) {
    // The buffer is sized without slack, so a size rule that is one byte short
    // for some length is an overrun (the address sanitizer build sees it) and
    // one that is too generous hides a wrong prediction.
    std::mt19937 rng(7);
    for (int n = 1; n <= 200; ++n) {
        std::string in(static_cast<std::size_t>(n), '\0');
        for (auto& c : in) c = static_cast<char>(rng());
        const std::string out = encode(in);
        ASSERT_EQ(out, reference_base64(in)) << "n=" << n;
        EXPECT_EQ(out.size(), base64_buffer_size(static_cast<std::size_t>(n), 48)) << "n=" << n;
    }
    // An unreadable line length counts no newlines rather than dividing by zero.
    EXPECT_EQ(base64_buffer_size(32, 0), 44u);
}

TEST_F(Credentials, Base64KnownTextsAndEmptyInput) {
    EXPECT_EQ(encode("f"), "Zg==\n");
    EXPECT_EQ(encode("fo"), "Zm8=\n");
    EXPECT_EQ(encode("foobar"), "Zm9vYmFy\n");
    EXPECT_EQ(encode(std::string(32, '\xff')), std::string(42, '/') + "8=\n");  // a digest: the password

    testing::internal::CaptureStdout();
    EXPECT_EQ(encode(""), "<null>");
    EXPECT_FALSE(ft::cred::base64_encode("misc", nullptr, 0));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*ERROR* fact_device_key:do_base64_encode():247 Base64 encode failed\n"
              "*ERROR* misc:do_base64_encode():247 Base64 encode failed\n");
}

std::string mac_text(const std::string& stored, int* rc) {
    fake::platform().fields[1] = stored;
    std::array<char, 13> out;
    out.fill('x');
    *rc = get_mac_address(out.data(), static_cast<int>(out.size()));
    return std::string(out.data(), strnlen(out.data(), out.size()));
}

TEST_F(Credentials, MacTextDropsColonsAndKeepsLetterCase) {
    int rc = -1;
    EXPECT_EQ(mac_text("02:12:34:ab:cd:ef", &rc), "021234abcdef");
    EXPECT_EQ(rc, 0);
    EXPECT_EQ(mac_text("02:12:34:AB:CD:EF", &rc), "021234ABCDEF");
    EXPECT_EQ(rc, 0);
    // Seventeen characters are all that is checked; without colons only what
    // fits the buffer is taken.
    EXPECT_EQ(mac_text("0212-34ab-cdef-01", &rc), "0212-34ab-cd");
    EXPECT_EQ(rc, 0);
}

TEST_F(Credentials, MacOfWrongLengthIsNotProgrammed) {
    const std::string expected =
        "*ERROR* fact_device_key:get_mac_address():69 MAC is not programmed\n"
        "*ERROR* fact_device_key:get_mac_address():70 Please program MAC before generating certificate\n";
    for (const char* stored : {"021234ABCDEF", "02:12:34:ab:cd:e", ""}) {
        int rc = 0;
        testing::internal::CaptureStdout();
        mac_text(stored, &rc);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), expected) << stored;
        EXPECT_EQ(rc, -1) << stored;
    }
}

TEST_F(Credentials, MacFieldWithoutTerminatorIsNotReadPastItsBuffer) {
    fake::platform().unterminated_bytes = 18;
    std::array<char, 13> out{};
    testing::internal::CaptureStdout();
    EXPECT_EQ(get_mac_address(out.data(), 13), -1);
    EXPECT_NE(testing::internal::GetCapturedStdout().find("MAC is not programmed"), std::string::npos);
}

TEST_F(Credentials, MacBufferTooSmallIsLeftUntouched) {
    fake::platform().fields[1] = "02:12:34:ab:cd:ef";
    std::array<char, 12> out;
    out.fill('x');
    testing::internal::CaptureStdout();
    EXPECT_EQ(get_mac_address(out.data(), 12), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*ERROR* fact_device_key:get_mac_address():58 Buffer size too small\n");
    EXPECT_EQ(std::string(out.data(), out.size()), std::string(12, 'x'));
}

TEST_F(Credentials, MacReadFailureIsReported) {
    fake::platform().read_fails = true;
    std::array<char, 13> out{};
    testing::internal::CaptureStdout();
    EXPECT_EQ(get_mac_address(out.data(), 13), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*ERROR* fact_device_key:get_mac_address():64 Unable to read MAC from factory data\n");
}

}  // namespace
