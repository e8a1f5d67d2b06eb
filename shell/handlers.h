#pragma once
// Every handler the dispatch tables and the start-up and quit sequences
// call, declared once in its own area's header.
#include "audio/audio.h"
#include "credentials/misc.h"
#include "display/lcd.h"
#include "factory_data/config.h"
#include "input/monitors.h"
#include "network/ftp.h"
#include "network/ports.h"
#include "network/switch.h"
#include "network/wifi.h"
#include "peripherals/bluetooth.h"
#include "peripherals/camera.h"
#include "peripherals/memory.h"
#include "peripherals/usb.h"
#include "shell/help.h"
