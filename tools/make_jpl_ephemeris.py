#!/usr/bin/python3
"""Write a JPL binary planetary ephemeris file from Debian's DE405 table.

Debian's package casacore-data-jpl-de405 keeps JPL's DE405 as a casacore
table: one row per 32-day record with its start (column MJD) and its Chebyshev
coefficients (column x, without the record's two dates), the constants of the
ephemeris as table keywords in JPL's order, and the record layout (IPT and
LPT) in the keyword Description of column x. This tool writes the same data
as the binary direct-access file that Orvane reads (jplde423.dat, choice 2):
little-endian, a header record (three titles, 400 constant names, SS, NCON,
AU, EMRAT, IPT, NUMDE, LPT), a constants record, then one record per 32 days
holding its two dates and its coefficients, each record as long as the
layout needs (1018 doubles for DE405).

usage: make_jpl_ephemeris.py [--table DIR] OUTPUT_PATH

The file is written beside OUTPUT_PATH under a temporary name and renamed
when complete, so a reader never sees half a file; missing folders are made.

Exit status: 0 written; 77 when python3-casacore or the table is not
installed (install the Debian packages python3-casacore and
casacore-data-jpl-de405); 1 when the table is unusable or the file cannot
be written.
"""

import argparse
import os
import struct
import sys
import tempfile

DEFAULT_TABLE = "/usr/share/casacore/data/ephemerides/DE405"
MISSING = 77

# Keywords of the table that describe the table itself, not the ephemeris.
TABLE_KEYWORDS = {"VS_CREATE", "VS_DATE", "VS_VERSION", "VS_TYPE", "TAB_VERSION", "MJD0", "dMJD"}

MJD_TO_JD = 2400000.5
CONSTANT_SLOTS = 400
TITLE_WIDTH = 84
NAME_WIDTH = 6


class TableError(Exception):
    pass


def parse_arguments(argv):
    parser = argparse.ArgumentParser(
        prog="make_jpl_ephemeris.py",
        description="Write a JPL binary planetary ephemeris file (little-endian, the layout "
        "Orvane reads as jplde423.dat) from Debian's casacore DE405 table.",
        epilog="Exit status 77 means python3-casacore or casacore-data-jpl-de405 is missing.",
    )
    parser.add_argument("output", metavar="OUTPUT_PATH", help="the file to write, e.g. "
                        "/usr/local/share/Orvane/jplde423.dat")
    parser.add_argument("--table", default=DEFAULT_TABLE,
                        help="the casacore table (default: %(default)s)")
    return parser.parse_args(argv)


def series_end(offset, coefficients, granules, components):
    return offset - 1 + components * coefficients * granules


def read_layout(description):
    """IPT (12 triples) and LPT from the 3 x 13 Description keyword."""
    values = [int(v) for v in list(description)]
    if len(values) != 39:
        raise TableError("Description of column x has %d values, not 39" % len(values))
    triples = [(values[i], values[13 + i], values[26 + i]) for i in range(13)]
    for i, (offset, coefficients, granules) in enumerate(triples):
        if i < 11 and (offset < 3 or coefficients < 1 or granules < 1):
            raise TableError("series %d has no usable layout: %r" % (i + 1, triples[i]))
    return triples[:12], triples[12]


def record_length(ipt, lpt):
    furthest = 2
    for i, (offset, coefficients, granules) in enumerate(ipt):
        if coefficients and granules:
            furthest = max(furthest, series_end(offset, coefficients, granules, 2 if i == 11 else 3))
    offset, coefficients, granules = lpt
    if coefficients and granules:
        furthest = max(furthest, series_end(offset, coefficients, granules, 3))
    return furthest


def read_constants(keywords):
    names, values = [], []
    for name, value in keywords.items():
        if name in TABLE_KEYWORDS:
            continue
        if isinstance(value, bool) or not isinstance(value, (int, float)):
            raise TableError("keyword %s is not a number: %r" % (name, value))
        if len(name) > NAME_WIDTH:
            raise TableError("constant name %s is longer than %d characters" % (name, NAME_WIDTH))
        names.append(name)
        values.append(float(value))
    if len(names) > CONSTANT_SLOTS:
        raise TableError("%d constants do not fit the %d names of the header"
                         % (len(names), CONSTANT_SLOTS))
    for needed in ("DENUM", "LENUM", "AU", "EMRAT"):
        if needed not in names:
            raise TableError("the table has no constant %s" % needed)
    return names, values


def padded(text, width):
    data = text.encode("ascii")
    if len(data) > width:
        raise TableError("text %r is longer than %d characters" % (text, width))
    return data + b" " * (width - len(data))


def header_record(names, values, ss, ipt, lpt, doubles):
    constant = dict(zip(names, values))
    denum = int(constant["DENUM"])
    lenum = int(constant["LENUM"])
    out = bytearray()
    out += padded("JPL Planetary Ephemeris DE%d/LE%d" % (denum, lenum), TITLE_WIDTH)
    out += padded("Start Epoch: JED= %.1f" % ss[0], TITLE_WIDTH)
    out += padded("Final Epoch: JED= %.1f" % ss[1], TITLE_WIDTH)
    for i in range(CONSTANT_SLOTS):
        out += padded(names[i] if i < len(names) else "", NAME_WIDTH)
    out += struct.pack("<3d", *ss)
    out += struct.pack("<i", len(names))
    out += struct.pack("<2d", constant["AU"], constant["EMRAT"])
    for triple in ipt:
        out += struct.pack("<3i", *triple)
    out += struct.pack("<i", denum)
    out += struct.pack("<3i", *lpt)
    if len(out) > doubles * 8:
        raise TableError("the header does not fit a record of %d doubles" % doubles)
    return bytes(out) + b"\0" * (doubles * 8 - len(out))


def constants_record(values, doubles):
    out = struct.pack("<%dd" % len(values), *values)
    return out + b"\0" * (doubles * 8 - len(out))


def write_file(table, output):
    import numpy

    keywords = table.getkeywords()
    span = float(keywords.get("dMJD", 0.0))
    if not span > 0.0:
        raise TableError("the table has no record length dMJD")
    ipt, lpt = read_layout(table.getcolkeywords("x")["Description"])
    doubles = record_length(ipt, lpt)
    if doubles < CONSTANT_SLOTS:
        raise TableError("records of %d doubles cannot hold the constants" % doubles)
    names, values = read_constants(keywords)

    rows = table.nrows()
    if rows < 1:
        raise TableError("the table has no records")
    mjd = table.getcol("MJD")
    for row in range(1, rows):
        if mjd[row] != mjd[row - 1] + span:
            raise TableError("record %d does not follow record %d" % (row + 1, row))
    start = float(mjd[0]) + MJD_TO_JD
    ss = (start, start + span * rows, span)

    folder = os.path.dirname(os.path.abspath(output))
    os.makedirs(folder, exist_ok=True)
    handle, partial = tempfile.mkstemp(prefix=".jplde", suffix=".part", dir=folder)
    try:
        with os.fdopen(handle, "wb") as out:
            out.write(header_record(names, values, ss, ipt, lpt, doubles))
            out.write(constants_record(values, doubles))
            coefficients = doubles - 2
            for row in range(rows):
                x = numpy.asarray(table.getcell("x", row), dtype="<f8")
                if x.shape[0] < coefficients:
                    raise TableError("record %d has %d coefficients, not %d"
                                     % (row + 1, x.shape[0], coefficients))
                begin = float(mjd[row]) + MJD_TO_JD
                out.write(struct.pack("<2d", begin, begin + span))
                out.write(x[:coefficients].tobytes())
        os.chmod(partial, 0o644)
        os.replace(partial, output)
    except BaseException:
        os.unlink(partial)
        raise
    return rows, doubles


def main(argv):
    args = parse_arguments(argv)
    try:
        from casacore.tables import table as open_table
    except ImportError:
        print("make_jpl_ephemeris.py: python3-casacore is not installed "
              "(Debian package python3-casacore)", file=sys.stderr)
        return MISSING
    if not os.path.isfile(os.path.join(args.table, "table.dat")):
        print("make_jpl_ephemeris.py: no casacore table at %s "
              "(Debian package casacore-data-jpl-de405)" % args.table, file=sys.stderr)
        return MISSING
    try:
        table = open_table(args.table, readonly=True, ack=False)
        try:
            rows, doubles = write_file(table, args.output)
        finally:
            table.close()
    except (TableError, OSError, RuntimeError, KeyError) as error:
        print("make_jpl_ephemeris.py: %s" % error, file=sys.stderr)
        return 1
    print("%s: %d records of %d doubles" % (args.output, rows, doubles))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
