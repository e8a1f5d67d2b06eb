#pragma once
// Audio paths, loopback, tone and warn, as the shell calls them;
// initialize_audio is part of start-up.

void initialize_audio();
int audio_loop(const char* action, const char* input, const char* output);
int audio_section508_gain(const char* action);
int audio_tone(const char* action, const char* device);
int audio_warn(const char* ftp_ip, const char* user, const char* password, const char* playback_file,
               const char* playback_volume, const char* capture_volume, const char* capture_file);

// The loopback route of one input (0 handset, 1 wired headset, 2 speakerphone
// microphone, 3 3.5 mm headset) to one output (the same numbers), numbers
// already checked by the caller.
void start_audio_loop(unsigned input, unsigned output);
void stop_audio_loop(unsigned input, unsigned output);
