#pragma once
// Disarms the hardware watchdog with the magic close, so the shell can sit at
// its prompt without the phone resetting. 0 when the device opened, else -1.
int disable_watchdog();
