#pragma once
// Numbers in the fixed-width forms of the program's text files and panels. The
// tables were laid out for Fortran edit descriptors, so the numbers are written the
// way a Fortran 90 compiler writes them (gfortran is the reference):
//
//   Iw    integer, right-aligned in w.
//   Fw.d  fixed form with d decimals. The zero before the point is dropped only
//         when the field would otherwise be too narrow: F6.4 of -0.5 is "-.5000".
//   Ew.d  0.ddddE+xx: a zero, the point, d significant digits, the exponent. For a
//         negative value in a field without room for the zero it is dropped:
//         E21.15 of -12.5 is "-.125000000000000E+02". An exponent of three digits
//         takes the place of the letter: "0.100+101".
//   ESw.d d.ddddE+xx, one non-zero digit before the point.
//
// A value that does not fit fills its field with asterisks. The digits are the
// correctly rounded decimal form of the exact binary value (ties to even, as the C
// library rounds). Any value whose sign bit is set is written with its minus sign,
// also -0.0 and values that round to zero ("-0.00"). NaN is "NaN"; infinity is
// "Infinity" or "-Infinity" when the field has room, else "Inf" / "-Inf".
//
// The put* forms write exactly field.size() characters into a caller's buffer and
// never allocate; the append* forms grow a caller's string by w characters. Widths
// above kMaxFieldWidth, and decimals that no field of the width can hold, give a
// field of asterisks.
#include <cstddef>
#include <span>
#include <string>

namespace orvane {

inline constexpr int kMaxFieldWidth = 256;

void putI(std::span<char> field, long long value);
void putF(std::span<char> field, double value, int d);
void putE(std::span<char> field, double value, int d);
void putES(std::span<char> field, double value, int d);

void appendI(std::string& out, long long value, int w);
void appendF(std::string& out, double value, int w, int d);
void appendE(std::string& out, double value, int w, int d);
void appendES(std::string& out, double value, int w, int d);

std::string formatI(long long value, int w);
std::string formatF(double value, int w, int d);
std::string formatE(double value, int w, int d);
std::string formatES(double value, int w, int d);

}  // namespace orvane
