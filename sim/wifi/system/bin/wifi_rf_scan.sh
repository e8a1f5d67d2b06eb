#!/bin/sh
# Scans N times for one network, chosen by SSID or by BSSID, and prints its
# average signal level and quality. Mode 1 to 3 sets the antenna paths for
# the scans (1 path A, 2 path B, 3 both); mode 0 keeps the paths set now.
# Usage: wifi_rf_scan.sh --ssid|--mac VALUE -n ITERATIONS --mode MODE
usage() {
  echo "usage: $0 --ssid|--mac VALUE -n ITERATIONS --mode 0|1|2|3" >&2
  exit 2
}
[ $# -eq 6 ] && [ "$3" = -n ] && [ "$5" = --mode ] || usage
case "$1" in
  --ssid) field=ssid ;;
  --mac) field=mac ;;
  *) usage ;;
esac
value=$2 iterations=$4 mode=$6
case "$iterations" in ''|*[!0-9]*) usage ;; esac
[ "$iterations" -gt 0 ] || usage
case "$mode" in 0|1|2|3) ;; *) usage ;; esac
if [ ! -d /sys/class/net/wlan0 ] || [ "$(phone-state get wifi.link)" != up ]; then
  echo "$0: wlan0 is not up" >&2
  exit 1
fi
[ "$mode" = 0 ] || mlanutl wlan0 antcfg "$mode" || exit 1
echo "Scanning for $field \"$value\", $iterations iteration(s), antenna mode $mode"
aps=$(phone-state get wifi.aps)
want=$(printf '%s' "$value" | tr '[:lower:]' '[:upper:]')
signal_sum=0 quality_sum=0 found=0
i=0
while [ "$i" -lt "$iterations" ]; do
  i=$((i + 1))
  set -f
  old_ifs=$IFS
  IFS=';'
  for ap in $aps; do
    IFS=/ read -r ssid bssid signal quality <<AP
$ap
AP
    if [ "$field" = ssid ]; then
      [ "$ssid" = "$value" ] || continue
    else
      [ "$(printf '%s' "$bssid" | tr '[:lower:]' '[:upper:]')" = "$want" ] || continue
    fi
    echo "scan $i: signal level $signal dBm, quality $quality/70"
    signal_sum=$((signal_sum + signal)) quality_sum=$((quality_sum + quality)) found=$((found + 1))
    break
  done
  IFS=$old_ifs
  set +f
done
if [ "$found" -eq 0 ]; then
  echo "No network matched $field \"$value\" in $iterations scan(s)"
  exit 1
fi
echo "Average signal level: $((signal_sum / found)) dBm"
echo "Average quality: $((quality_sum / found))/70"
exit 0
