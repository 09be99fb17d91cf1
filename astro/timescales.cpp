#include "astro/timescales.h"

#include <charconv>
#include <cmath>

#include "astro/constants.h"

namespace orvane {

// ---- Delta T -------------------------------------------------------------------------

double BesselianYearOf(JulianDate jd) {
    // Whole days and the fraction are added separately, in this order, to keep digits.
    const double whole = std::trunc(jd);
    return (whole - 2415020.0 - 0.31352 + (jd - whole)) / 365.242199 + 1900.0;
}

double DeltaT(double year) {
    // No long-term parabola: early dates get no correction at all.
    if (!(year > 1820.5)) return 0.0;
    if (year > 2013.0) return 66.7;

    // The yearly and the quarterly runs of the table are kept apart at 1956.0.
    double base = 1820.5;
    double step = 1.0;
    int offset = 2;
    if (year >= 1956.0) {
        base = 1956.0;
        step = 0.25;
        offset = 143;
    }
    const double d = year - base;
    const int n = static_cast<int>(std::trunc(d / step));
    const double f = (d - n * step) / step;
    const int k = n + offset;
    // Reached from 2012.5 on, before the test against 2013.0 above could be.
    if (k + 2 >= kDeltaTTableSize - 1) return 66.7;

    const double a = kDeltaTTable[k];
    const double b = kDeltaTTable[k + 1];
    const double c = kDeltaTTable[k + 2];
    const double e = kDeltaTTable[k + 3];
    const double g = (f - 1.0) * f * 0.25;
    return b + (c - b) * f + (e - c - b + a) * g + (g * (f - 0.5) * 2.0 / 3.0) * (3.0 * (b - c) + (e - a));
}

JulianDate TerrestrialToUniversal(JulianDate jd) { return jd - DeltaT(BesselianYearOf(jd)) / 86400.0; }

// ---- Pieces of the general converter -------------------------------------------------

int TaiMinusUtc(JulianDate jdUtc, double& seconds) {
    seconds = 0.0;
    if (!(jdUtc >= kEarlyUtcInstants[0])) return kScaleBeforeTable;

    // 1956 to 1961: linear between the breakpoints.
    if (jdUtc < 2437300.5) {
        int i = 0;
        while (i + 2 < kEarlyUtcPoints && jdUtc >= kEarlyUtcInstants[i + 1]) ++i;
        const double x0 = kEarlyUtcInstants[i];
        const double x1 = kEarlyUtcInstants[i + 1];
        seconds = kEarlyUtcValues[i] + (kEarlyUtcValues[i + 1] - kEarlyUtcValues[i]) * (jdUtc - x0) / (x1 - x0);
        return kScaleGood;
    }

    // From 1961: the first row whose end lies above the instant; past all rows, the last.
    int row = kLeapRowCount - 1;
    for (int i = 0; i < kLeapRowCount; ++i) {
        if (static_cast<double>(kLeapRows[i].end) > jdUtc) {
            row = i;
            break;
        }
    }
    const double v = kLeapRows[row].value;
    if (row <= 1) {
        seconds = (jdUtc - 2437300.5) * 0.001296 + v;
    } else if (row <= 3) {
        seconds = (jdUtc - 2437665.5) * 0.0011232 + v;
    } else if (row <= 10) {
        seconds = (jdUtc - 2438761.5) * 0.001296 + v;
    } else if (row <= 12) {
        seconds = (jdUtc - 2439126.5) * 0.002592 + v;
    } else {
        seconds = v;
    }
    return kScaleGood;
}

double UtcVariantMinusUtc(JulianDate jd) {
    if (jd >= 2440038.5 && jd < 2440069.5) return 0.0002;
    if (jd >= 2439764.5 && jd < 2441317.5) return 0.0001;
    return 0.0;
}

double Ut2MinusUt1(JulianDate jd) {
    if (!(jd >= 2415020.5)) return 0.0;
    const double b = (jd - 2451544.53) / 365.2422 + 2000.0;
    const double x = kTwoPi * b;
    return 0.022 * std::sin(x) - 0.012 * std::cos(x) - 0.006 * std::sin(2.0 * x) + 0.007 * std::cos(2.0 * x);
}

double Ut1MinusUt1R(JulianDate jd) {
    if (!(jd >= 2444970.5)) return 0.0;
    const double d = jd - 2400000.5 - 51544.5;
    const double args[5] = {
        (134.96 + 13.064993 * d) / kDegreesPerRadian,   // l
        (357.53 + 0.9856 * d) / kDegreesPerRadian,      // l'
        (93.27 + 13.22935 * d) / kDegreesPerRadian,     // F
        (297.85 + 12.190749 * d) / kDegreesPerRadian,   // D
        (125.04 - 0.052954 * d) / kDegreesPerRadian,    // Omega
    };
    double sum = 0.0;
    for (const Ut1rTerm& term : kUt1rTerms) {
        double angle = 0.0;
        for (int j = 0; j < 5; ++j) angle += term.multipliers[j] * args[j];
        sum += term.coefficient * std::sin(angle);
    }
    return 1e-7 * sum;
}

double TdbMinusTt(JulianDate jd) {
    // The rate is divided by 365.25, not 36525, and the last two constants are single
    // precision values widened to double: both as the program has always computed it.
    const double g = ((jd - 2451545.0) * 35999.05 / 365.25 + 357.528015136719) * 6.28318548202515 / 360.0;
    return 0.001658 * std::sin(g + 0.0167 * std::sin(g));
}

namespace {

// Six-point Lagrange interpolation in a table of evenly spaced values; the window of
// six points is kept inside the table at both ends.
double SixPointInterpolation(const Ut1Series& series, double jd) {
    const int count = static_cast<int>(series.taiMinusUt1.size());
    const double u = (jd - series.firstJd) / series.step;
    int start = static_cast<int>(std::floor(u)) - 2;
    if (start > count - 6) start = count - 6;
    if (start < 0) start = 0;
    const double x = u - start;
    double sum = 0.0;
    for (int j = 0; j < 6; ++j) {
        double weight = 1.0;
        for (int m = 0; m < 6; ++m) {
            if (m != j) weight *= (x - m) / static_cast<double>(j - m);
        }
        sum += weight * series.taiMinusUt1[static_cast<std::size_t>(start + j)];
    }
    return sum;
}

}  // namespace

int TaiMinusUt1(const Ut1Series& series, JulianDate jd, double& seconds) {
    seconds = 0.0;
    const std::size_t count = series.taiMinusUt1.size();
    if (count < 6 || !(series.step > 0.0)) return kScaleOutsideUt1Series;
    const double last = series.firstJd + static_cast<double>(count - 1) * series.step;
    if (!(jd >= series.firstJd && jd <= last)) return kScaleOutsideUt1Series;

    double value = SixPointInterpolation(series, jd);
    if (jd >= 2438394.5 && jd <= 2443874.5) {
        value += 0.0007 * (std::sin((jd - 2444048.5) * kTwoPi / 365.24) +
                           std::sin((jd - 2444019.5) * 2.0 * kTwoPi / 365.24));
    }
    if (jd < 2450449.5) {
        const double node = (125.04 - 0.05295399948954582 * (jd - 2451545.0)) * kTwoPi / 360.0;
        // 1e-4 as the single-precision value it was stored as.
        value += 9.999999747378752e-05 *
                 (0.03 * (jd - 2450449.5) / 365.2422 - 0.2 - 1.76 * std::sin(node) - 0.04 * std::sin(2.0 * node));
    }
    seconds = value;
    return kScaleGood;
}

int ReadUt1Series(const std::string& text, Ut1Series& series) {
    series = Ut1Series{};
    std::vector<double> numbers;
    std::size_t i = 0;
    while (i < text.size()) {
        const char ch = text[i];
        if (ch == '#') {
            while (i < text.size() && text[i] != '\n') ++i;
            continue;
        }
        if (ch == ' ' || ch == '\t' || ch == '\r' || ch == '\n' || ch == ',') {
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end < text.size() && text[end] != ' ' && text[end] != '\t' && text[end] != '\r' &&
               text[end] != '\n' && text[end] != ',' && text[end] != '#') {
            ++end;
        }
        const char* first = text.data() + i;
        const char* last = text.data() + end;
        if (*first == '+') ++first;  // from_chars takes no plus sign
        double value = 0.0;
        const auto result = std::from_chars(first, last, value);
        if (result.ec != std::errc() || result.ptr != last || !std::isfinite(value)) return -1;
        numbers.push_back(value);
        i = end;
    }
    if (numbers.size() < 8 || !(numbers[1] > 0.0)) return -1;
    series.firstJd = numbers[0];
    series.step = numbers[1];
    series.taiMinusUt1.assign(numbers.begin() + 2, numbers.end());
    return 0;
}

// ---- The converter -------------------------------------------------------------------

namespace {

bool IsEarthRotationScale(int scale) { return scale == kScaleUT1 || scale == kScaleUT2 || scale == kScaleUT1R; }

// Seconds from an instant on `scale` to the same instant on the hub of its group.
int ToHub(int scale, double jd, double& seconds) {
    seconds = 0.0;
    switch (scale) {
        case kScaleUT2: seconds = -Ut2MinusUt1(jd); return kScaleGood;
        case kScaleUT1R: seconds = Ut1MinusUt1R(jd); return kScaleGood;
        case kScaleTT:
        case kScaleET: seconds = -32.184; return kScaleGood;
        case kScaleTDB: seconds = -32.184 - TdbMinusTt(jd); return kScaleGood;
        case kScaleUTC: return TaiMinusUtc(jd, seconds);
        case kScaleUTCVariant: {
            const int status = TaiMinusUtc(jd, seconds);
            seconds -= UtcVariantMinusUtc(jd);
            return status;
        }
        default: return kScaleGood;  // UT1 and TAI are the hubs
    }
}

// Seconds from an instant on the hub to the same instant on `scale`; `hubJd` is on the hub.
int FromHub(int scale, double hubJd, double& seconds) {
    seconds = 0.0;
    switch (scale) {
        case kScaleUT2: seconds = Ut2MinusUt1(hubJd); return kScaleGood;
        case kScaleUT1R: seconds = -Ut1MinusUt1R(hubJd); return kScaleGood;
        case kScaleTT:
        case kScaleET: seconds = 32.184; return kScaleGood;
        case kScaleTDB: seconds = 32.184 + TdbMinusTt(hubJd + 32.184 / 86400.0); return kScaleGood;
        case kScaleUTC:
        case kScaleUTCVariant: {
            // The table is read on UTC: first estimate the UTC instant, then read again there.
            double estimate = 0.0;
            int status = TaiMinusUtc(hubJd, estimate);
            if (status != kScaleGood) return status;
            const double utc = hubJd - estimate / 86400.0;
            status = TaiMinusUtc(utc, seconds);
            seconds = -seconds;
            if (scale == kScaleUTCVariant) seconds += UtcVariantMinusUtc(utc);
            return status;
        }
        default: return kScaleGood;
    }
}

}  // namespace

ScaleConversion ConvertTimeScale(int code, JulianDate jd, const Ut1Series* series) {
    ScaleConversion result;
    result.jd = jd;
    const int from = code / 10;
    const int to = code % 10;
    if (code < 11 || code > 99 || to == 0) {
        result.status = kScaleUnknownCode;
        return result;
    }
    if (from == to) return result;

    double total = 0.0;
    double step = 0.0;
    int status = ToHub(from, jd, step);
    total += step;
    if (status == kScaleGood && IsEarthRotationScale(from) != IsEarthRotationScale(to)) {
        const double hubJd = jd + total / 86400.0;
        if (series == nullptr) {
            status = kScaleOutsideUt1Series;
        } else {
            status = TaiMinusUt1(*series, hubJd, step);
            total += IsEarthRotationScale(from) ? step : -step;
        }
    }
    if (status == kScaleGood) {
        status = FromHub(to, jd + total / 86400.0, step);
        total += step;
    }
    if (status != kScaleGood) {
        result.status = status;
        return result;
    }
    result.offsetSeconds = total;
    result.jd = jd + total / 86400.0;
    return result;
}

}  // namespace orvane
