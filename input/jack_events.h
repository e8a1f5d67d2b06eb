#pragma once
// What the headset jack's records mean: plug insertions and removals, told
// apart by the switch records that precede each synchronisation record, and
// the four headset buttons.
#include <array>

#include "input/event_monitor.h"

namespace ft::input {

// Owned by the jack monitor's thread.
struct JackState {
    int last_insertion = -1;  // the first insertion record after start-up always counts as a change
    bool change_pending = false;
    int headphone = 0;
    unsigned char microphone = 0;
};

// The hardware library's headset-type query (Jack_GetHeadsetType).
using HeadsetTypeQuery = int (*)(int* type_out);

// The one line a record may print, with its line feed (the longest, an
// unknown code with the most negative value, takes 53 characters).
using JackLine = std::array<char, 64>;

// Acts on one record of type sync, key or switch while either reporting flag
// is on; puts into @p out the line the flags ask for, or the empty text.
void interpret_jack_record(JackState& state, const Record& record, bool detection, bool buttons,
                           HeadsetTypeQuery query, JackLine& out);

}  // namespace ft::input
