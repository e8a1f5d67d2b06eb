#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "input/jack_events.h"

namespace {

using ft::input::JackState;
using ft::input::Record;

Record rec(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    Record r{};
    r.type = type;
    r.code = code;
    r.value = value;
    return r;
}

// What a real jack sends: headphone, microphone, insertion, sync.
std::vector<Record> plug(bool in, std::int32_t microphone) {
    return {rec(EV_SW, SW_HEADPHONE_INSERT, in ? 1 : 0), rec(EV_SW, SW_MICROPHONE_INSERT, microphone),
            rec(EV_SW, SW_JACK_PHYSICAL_INSERT, in ? 1 : 0), rec(EV_SYN, SYN_REPORT, 0)};
}

int g_type = 0;
int g_query_result = 0;
int g_queries = 0;
int query(int* type) {
    ++g_queries;
    *type = g_type;
    return g_query_result;
}

struct Jack : ::testing::Test {
    JackState state;
    bool detection = true;
    bool buttons = false;

    void SetUp() override {
        g_type = 3;
        g_query_result = 0;
        g_queries = 0;
    }

    std::string feed(const std::vector<Record>& records) {
        char* text = nullptr;
        std::size_t size = 0;
        std::FILE* out = open_memstream(&text, &size);
        for (const Record& r : records) ft::input::interpret_jack_record(state, r, detection, buttons, query, out);
        std::fclose(out);
        std::string s(text, size);
        std::free(text);
        return s;
    }
};

TEST_F(Jack, NamesEachPlugAndItsRemoval) {
    EXPECT_EQ(feed(plug(true, 1)), "JACK = CTIA\n");
    EXPECT_EQ(feed(plug(false, 0)), "JACK = none\n");
    g_type = 4;
    EXPECT_EQ(feed(plug(true, 1)), "JACK = OMTP\n");
    EXPECT_EQ(feed(plug(false, 0)), "JACK = none\n");
    EXPECT_EQ(feed(plug(true, 0)), "JACK = no mic\n");
    EXPECT_EQ(feed(plug(false, 0)), "JACK = none\n");
    // Headphones alone never ask the library.
    EXPECT_EQ(g_queries, 2);
}

TEST_F(Jack, TypesOtherThanTheTwoStandardsShowAsMic) {
    for (int type : {0, 1, 2, 5, -1}) {
        g_type = type;
        EXPECT_EQ(feed(plug(true, 1)), "JACK = mic\n") << type;
        EXPECT_EQ(feed(plug(false, 0)), "JACK = none\n");
    }
    g_type = 3;
    g_query_result = -1;
    EXPECT_EQ(feed(plug(true, 1)), "JACK = mic\n");
}

TEST_F(Jack, MicrophoneIsTheLowByteOfItsValue) {
    EXPECT_EQ(feed(plug(true, 0x100)), "JACK = no mic\n");
    EXPECT_EQ(feed(plug(false, 0)), "JACK = none\n");
    EXPECT_EQ(feed(plug(true, 0x101)), "JACK = CTIA\n");
}

TEST_F(Jack, OnlyAChangedInsertionIsEvaluated) {
    // The first insertion record after start-up counts, even a removal.
    EXPECT_EQ(feed(plug(false, 0)), "JACK = none\n");
    EXPECT_EQ(feed(plug(false, 0)), "");
    EXPECT_EQ(feed(plug(true, 1)), "JACK = CTIA\n");
    EXPECT_EQ(feed(plug(true, 1)), "");
    // A sync record alone evaluates nothing.
    EXPECT_EQ(feed({rec(EV_SYN, SYN_REPORT, 0)}), "");
}

TEST_F(Jack, RemovalForgetsWhatWasPluggedEvenUnreported) {
    detection = false;
    buttons = true;
    EXPECT_EQ(feed(plug(true, 1)), "");
    EXPECT_EQ(feed({rec(EV_SW, SW_JACK_PHYSICAL_INSERT, 0), rec(EV_SYN, SYN_REPORT, 0)}), "");
    EXPECT_EQ(state.headphone, 0);
    EXPECT_EQ(state.microphone, 0);
    detection = true;
    // Insertion without its switch records: nothing is known to be plugged.
    EXPECT_EQ(feed({rec(EV_SW, SW_JACK_PHYSICAL_INSERT, 1), rec(EV_SYN, SYN_REPORT, 0)}), "JACK = none\n");
}

TEST_F(Jack, ButtonsPrintOnlyWithTheirFlag) {
    const auto press_all = [&] {
        return feed({rec(EV_KEY, KEY_MEDIA, 1), rec(EV_KEY, KEY_VOLUMEUP, 0), rec(EV_KEY, KEY_VOLUMEDOWN, 1),
                     rec(EV_KEY, KEY_VOICECOMMAND, 2), rec(EV_SYN, SYN_REPORT, 0)});
    };
    EXPECT_EQ(press_all(), "");
    buttons = true;
    EXPECT_EQ(press_all(), "jackKeyCode[A] value[1]\njackKeyCode[B] value[0]\njackKeyCode[C] value[1]\n"
                           "jackKeyCode[D] value[2]\n");
}

TEST_F(Jack, UnknownCodesAreReportedUnderEitherFlag) {
    EXPECT_EQ(feed({rec(EV_SW, SW_LINEOUT_INSERT, 0)}), "Unknown jack event: keyCode[0006] value[0]\n");
    detection = false;
    buttons = true;
    EXPECT_EQ(feed({rec(EV_KEY, KEY_ENTER, -1), rec(EV_SW, 3, 0)}),
              "Unknown jack event: keyCode[001c] value[-1]\nUnknown jack event: keyCode[0003] value[0]\n");
}

}  // namespace
