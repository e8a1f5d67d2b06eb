#pragma once
// The three help screens: the main one, audio, and the Ethernet switch.
int factory_help();
int factory_audio_help();
int factory_l2_help();
