#pragma once
// Numbers of a record stay texts until they are used; these are the strict reads
// by which the record checks and the ELS writer take them: the whole text must be
// the number, with no blank, comma or other character around it.
#include <cstdint>
#include <string>
#include <string_view>

namespace orvane {

// [sign] digits, within the 32-bit range.
bool readStrictInteger(std::string_view text, std::int32_t& value);

// [sign] digits [. [digits]] or [sign] . digits, then an optional exponent
// [eEdD][sign]digits: the forms a Fortran F or E edit descriptor reads. Infinities
// and NaN are not numbers of a record.
bool readStrictReal(std::string_view text, double& value);

// Decimal text of an integer ("-43").
std::string integerText(long long value);

}  // namespace orvane
