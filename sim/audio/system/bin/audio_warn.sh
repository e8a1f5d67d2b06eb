#!/bin/sh
# The play-and-record test script. The phone's own fetches a sound file from
# the test station's FTP server, plays it, records and sends the recording
# back; what the factory shell is judged on is the arguments it hands over,
# so this one adds each of them to the command log, one a line.
i=0
for arg in "$@"; do
  i=$((i + 1))
  phone-state log "audio_warn.sh \$$i: $arg"
done
[ "$i" -gt 0 ] || phone-state log "audio_warn.sh: no arguments"
exit 0
