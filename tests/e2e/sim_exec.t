# ftsim exec joins the running phone's /tmp and processes, else powers up a fresh one.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim exec -- sh -c "echo left > /tmp/mark"
$ ftsim exec -- cat /tmp/mark
| left
$ ftsim exec -- pgrep -x ft
ft>quit
@ exit 0
$! ftsim exec -- cat /tmp/mark
$! ftsim exec -- pgrep -x ft
# A kernel file the host lacks (the panel's height) reaches open, stat and fopen alike.
$ ftsim exec -- sh -c "cat /proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/vactive | od -An -tu1"
|    0   0   1 224
$ ftsim exec -- stat -c "%s %F" /proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/vactive
| 4 regular file
$ ftsim exec -- python3 -c "import ctypes; c = ctypes.CDLL(None); c.fopen.restype = ctypes.c_void_p; c.fread.argtypes = (ctypes.c_char_p, ctypes.c_size_t, ctypes.c_size_t, ctypes.c_void_p); f = c.fopen(b'/proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/vactive', b'r'); b = ctypes.create_string_buffer(4); print(int.from_bytes(b.raw, 'big') if f and c.fread(b, 1, 4, f) == 4 else 'fopen missed')"
| 480
