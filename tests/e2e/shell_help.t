# The three help screens, byte for byte with their tabs, under every word that
# shows them, and a look-alike that does not. The digest is of the whole session
# as a station's pipe receives it; to see a difference, run the same line
# without "| sha256sum" and compare it with the screens the stations expect.
$ ftsim exec -- sh -c "printf 'help\nh\n?\nft help extra words\naudio\naudio 1 2 3\nl2\nHELP\nquit\n' | ft 2>&1 | sha256sum"
| f7820574e1f0b5a1dbcf5fcb3a53081188319d0ea49fbf55fe9aaaecd0e2f1b2  -
