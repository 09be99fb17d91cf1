#!/usr/bin/env python3
"""Reads the header of a BMP or PNG file with the standard library alone and prints
"<kind> <width> <height> <bits a pixel> <compression>" (compression is the BMP's
field, or the PNG's compression method), or a line beginning with "bad" and exits 1."""
import struct
import sys
import zlib


def bmp(data):
    if len(data) < 54 or data[:2] != b"BM":
        return None
    file_size, _, _, offset = struct.unpack_from("<IHHI", data, 2)
    header_size, width, height, planes, bits, compression, image_size = struct.unpack_from("<IiiHHII", data, 14)
    if file_size != len(data) or header_size != 40 or planes != 1:
        return None
    row = (width * bits // 8 + 3) // 4 * 4
    if offset + row * abs(height) != len(data) or image_size != row * abs(height):
        return None
    return "bmp %d %d %d %d" % (width, abs(height), bits, compression)


def png(data):
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        return None
    length, kind = struct.unpack_from(">I4s", data, 8)
    if kind != b"IHDR" or length != 13:
        return None
    width, height, depth, colour, compression, _, _ = struct.unpack_from(">IIBBBBB", data, 16)
    (crc,) = struct.unpack_from(">I", data, 29)
    if zlib.crc32(data[12:29]) != crc:
        return None
    channels = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}.get(colour, 0)
    return "png %d %d %d %d" % (width, height, depth * channels, compression)


def main():
    with open(sys.argv[1], "rb") as f:
        data = f.read()
    line = bmp(data) or png(data)
    if line is None:
        print("bad header")
        return 1
    print(line)
    return 0


if __name__ == "__main__":
    sys.exit(main())
