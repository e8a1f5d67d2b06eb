# Sourced by the phone's network tools, which take an address only as the
# real ones do: is_ipv4 WORD succeeds for four decimal octets 0 to 255 joined
# by dots, and for nothing else.
is_ipv4() {
  case $1 in ''|*[!0-9.]*|.*|*.|*..*) return 1 ;; esac
  ipv4_old=$IFS IFS=.
  set -- $1
  IFS=$ipv4_old
  [ $# -eq 4 ] || return 1
  for octet; do
    [ ${#octet} -le 3 ] && [ "$octet" -le 255 ] || return 1
  done
}
