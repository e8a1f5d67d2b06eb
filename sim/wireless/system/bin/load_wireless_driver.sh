#!/bin/sh
# The combo module's driver loader. The simulated kernel's module list is
# /proc/modules (served from the hardware folder); loading a driver adds its
# modules there and makes what the driver would make: wlan0 in /sys for
# WiFi, the character device for Bluetooth. delete_module takes them away
# again (the WiFi and Bluetooth areas hook it).
# Usage: load_wireless_driver.sh --type wifi|bt
add_module() {
  grep -qs "^$1 " /proc/modules || echo "$1 $2 $3 $4 Live 0x0000000000000000" >> /proc/modules
}
if [ "$1" != --type ] || [ $# -ne 2 ]; then
  echo "usage: $0 --type wifi|bt" >&2
  exit 2
fi
case "$2" in
  wifi)
    # sd8xxx uses mlan: the kernel lists the user beside the module used.
    add_module mlan 385024 1 sd8xxx,
    add_module sd8xxx 524288 0 -
    mkdir -p /sys/class/net/wlan0
    phone-state get wifi.mac > /sys/class/net/wlan0/address 2>/dev/null
    phone-state observe wifi.driver loaded 2>/dev/null
    ;;
  bt)
    add_module mbt8xxx 188416 0 -
    : > /dev/mbtchar0
    phone-state observe bt.driver loaded 2>/dev/null
    ;;
  *)
    echo "$0: unknown type '$2'" >&2
    exit 2
    ;;
esac
exit 0
