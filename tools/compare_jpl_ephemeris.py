#!/usr/bin/python3
"""Compare two JPL binary ephemeris files part by part.

usage: compare_jpl_ephemeris.py FILE REFERENCE

Reports each part of the header (titles, constant names, SS, NCON, AU, EMRAT,
IPT, NUMDE, LPT, the rest of the header record), the constants record and the
data records as identical or different. Exit status: 0 when every byte is
the same, 1 when anything differs, 77 when FILE does not exist (the tool that
makes it was skipped).
"""

import os
import struct
import sys

HEADER_FIELDS = [
    ("titles", 0, 252),
    ("constant names", 252, 2652),
    ("SS", 2652, 2676),
    ("NCON", 2676, 2680),
    ("AU", 2680, 2688),
    ("EMRAT", 2688, 2696),
    ("IPT", 2696, 2840),
    ("NUMDE", 2840, 2844),
    ("LPT", 2844, 2856),
]


def record_bytes(data):
    """Record length from the layout in the header, as the reader computes it."""
    triples = [struct.unpack_from("<3i", data, 2696 + 12 * i) for i in range(12)]
    triples.append(struct.unpack_from("<3i", data, 2844))
    furthest = 2
    for i, (offset, coefficients, granules) in enumerate(triples):
        if coefficients > 0 and granules > 0:
            components = 2 if i == 11 else 3
            furthest = max(furthest, offset - 1 + components * coefficients * granules)
    return furthest * 8


def main(argv):
    if len(argv) != 2 or argv[0] in ("-h", "--help"):
        print(__doc__.strip())
        return 0 if argv and argv[0] in ("-h", "--help") else 1
    path, reference = argv
    if not os.path.exists(path):
        print("compare_jpl_ephemeris.py: %s does not exist (was its conversion skipped?)" % path)
        return 77
    with open(path, "rb") as f:
        a = f.read()
    with open(reference, "rb") as f:
        b = f.read()
    if len(a) < 2856 or len(b) < 2856:
        print("a file is shorter than a header: %d and %d bytes" % (len(a), len(b)))
        return 1

    same = True

    def report(what, x, y):
        nonlocal same
        if x == y:
            print("%-24s identical" % what)
        else:
            same = False
            print("%-24s DIFFERENT" % what)

    for name, begin, end in HEADER_FIELDS:
        report("header: " + name, a[begin:end], b[begin:end])
    size = record_bytes(b)
    if record_bytes(a) != size:
        print("record lengths differ: %d and %d bytes" % (record_bytes(a), size))
        return 1
    report("header: rest of record", a[2856:size], b[2856:size])
    report("constants record", a[size:2 * size], b[size:2 * size])
    records_a = len(a) // size - 2
    records_b = len(b) // size - 2
    differing = [r for r in range(min(records_a, records_b))
                 if a[(r + 2) * size:(r + 3) * size] != b[(r + 2) * size:(r + 3) * size]]
    print("data records: %d and %d, %d of them different" % (records_a, records_b, len(differing)))
    if differing or records_a != records_b or len(a) != len(b):
        same = False
    if differing:
        print("first different data record: %d" % (differing[0] + 1))
    print("files identical" if same else "files differ")
    return 0 if same else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
