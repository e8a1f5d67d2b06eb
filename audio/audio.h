#pragma once
// Audio paths, loopback, tone and warn, as the shell calls them;
// initialize_audio is part of start-up.
#include "common/handler.h"

FT_NOT_BUILT_YET void initialize_audio();
FT_NOT_BUILT_YET int audio_loop(const char* action, const char* input, const char* output);
FT_NOT_BUILT_YET int audio_section508_gain(const char* action);
FT_NOT_BUILT_YET int audio_tone(const char* action, const char* device);
FT_NOT_BUILT_YET int audio_warn(const char* ftp_ip, const char* user, const char* password, const char* playback_file,
                                const char* playback_volume, const char* capture_volume, const char* capture_file);
