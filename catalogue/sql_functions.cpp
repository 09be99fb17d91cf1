#include "catalogue/sql_functions.h"

#include <sqlite3.h>

#include <cerrno>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <mutex>

#include "catalogue/legacy_round.h"

namespace orvane::sql {

namespace {

constexpr double kPi = 3.141592653589793;

bool isNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

// The error the mathematics library recorded during the last call, 0 for none.
int recordedMathError() {
    if (errno != 0) {
        return errno;
    }
    if ((math_errhandling & MATH_ERREXCEPT) != 0 && (math_errhandling & MATH_ERRNO) == 0) {
        if (std::fetestexcept(FE_INVALID) != 0) {
            return EDOM;
        }
        if (std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW) != 0) {
            return ERANGE;
        }
    }
    return 0;
}

void clearMathError() {
    errno = 0;
    std::feclearexcept(FE_ALL_EXCEPT);
}

void deliver(sqlite3_context* context, double result) {
    if (const int error = recordedMathError(); error != 0) {
        sqlite3_result_error(context, std::strerror(error), -1);
    } else if (std::isnan(result)) {
        sqlite3_result_null(context);
    } else {
        sqlite3_result_double(context, result);
    }
}

double degreesOf(double x) { return x * 180.0 / kPi; }
double radiansOf(double x) { return x * kPi / 180.0; }
double sqrtOf(double x) { return std::sqrt(x); }
double expOf(double x) { return std::exp(x); }
double logOf(double x) { return std::log(x); }
double log10Of(double x) { return std::log(x) / std::log(10.0); }
double cosOf(double x) { return std::cos(x); }
double sinOf(double x) { return std::sin(x); }
double tanOf(double x) { return std::tan(x); }
double cotOf(double x) { return 1.0 / std::tan(x); }
double acosOf(double x) { return std::acos(x); }
double asinOf(double x) { return std::asin(x); }
double atanOf(double x) { return std::atan(x); }
double coshOf(double x) { return (std::exp(x) + std::exp(-x)) / 2.0; }
double sinhOf(double x) { return (std::exp(x) - std::exp(-x)) / 2.0; }
double tanhOf(double x) {
    const double up = std::exp(x);
    const double down = std::exp(-x);
    return (up - down) / (up + down);
}
double cothOf(double x) {
    const double up = std::exp(x);
    const double down = std::exp(-x);
    return (up + down) / (up - down);
}
double acoshOf(double x) { return std::acosh(x); }
double asinhOf(double x) { return std::asinh(x); }
double atanhOf(double x) { return std::atanh(x); }

template <double (*Rule)(double)>
void unaryFunction(sqlite3_context* context, int, sqlite3_value** argv) {
    if (isNull(argv[0])) {
        sqlite3_result_null(context);
        return;
    }
    const double x = sqlite3_value_double(argv[0]);
    clearMathError();
    const double result = Rule(x);
    deliver(context, result);
}

void piFunction(sqlite3_context* context, int, sqlite3_value**) { sqlite3_result_double(context, kPi); }

void powFunction(sqlite3_context* context, int, sqlite3_value** argv) {
    if (isNull(argv[0]) || isNull(argv[1])) {
        sqlite3_result_null(context);
        return;
    }
    const double x = sqlite3_value_double(argv[0]);
    const double y = sqlite3_value_double(argv[1]);
    clearMathError();
    const double result = std::pow(x, y);
    deliver(context, result);
}

void signFunction(sqlite3_context* context, int, sqlite3_value** argv) {
    switch (sqlite3_value_type(argv[0])) {
    case SQLITE_NULL:
        sqlite3_result_null(context);
        return;
    case SQLITE_INTEGER: {
        const sqlite3_int64 x = sqlite3_value_int64(argv[0]);
        sqlite3_result_int64(context, x > 0 ? 1 : (x < 0 ? -1 : 0));
        return;
    }
    default: {
        const double x = sqlite3_value_double(argv[0]);
        sqlite3_result_double(context, x > 0 ? 1.0 : (x < 0 ? -1.0 : 0.0));
        return;
    }
    }
}

void squareFunction(sqlite3_context* context, int, sqlite3_value** argv) {
    switch (sqlite3_value_type(argv[0])) {
    case SQLITE_NULL:
        sqlite3_result_null(context);
        return;
    case SQLITE_INTEGER: {
        const sqlite3_int64 x = sqlite3_value_int64(argv[0]);
        sqlite3_int64 product = 0;
        if (__builtin_mul_overflow(x, x, &product)) {
            // Beyond 64 bits the square goes on as a real, as SQLite's own * does.
            const double real = static_cast<double>(x);
            sqlite3_result_double(context, real * real);
        } else {
            sqlite3_result_int64(context, product);
        }
        return;
    }
    default: {
        const double x = sqlite3_value_double(argv[0]);
        sqlite3_result_double(context, x * x);
        return;
    }
    }
}

void floorFunction(sqlite3_context* context, int, sqlite3_value** argv) {
    switch (sqlite3_value_type(argv[0])) {
    case SQLITE_NULL:
        sqlite3_result_null(context);
        return;
    case SQLITE_INTEGER:
        sqlite3_result_int64(context, sqlite3_value_int64(argv[0]));
        return;
    default: {
        // The view pastes floor(hday) into a date text, so it must be an integer:
        // "15", never "15.0". Values beyond 64 bits end at the nearest limit.
        const double x = std::floor(sqlite3_value_double(argv[0]));
        constexpr double kTop = 9223372036854775808.0;  // 2^63
        sqlite3_int64 result = 0;
        if (x >= kTop) {
            result = std::numeric_limits<sqlite3_int64>::max();
        } else if (x < -kTop) {
            result = std::numeric_limits<sqlite3_int64>::min();
        } else {
            result = static_cast<sqlite3_int64>(x);
        }
        sqlite3_result_int64(context, result);
        return;
    }
    }
}

void roundFunction(sqlite3_context* context, int argc, sqlite3_value** argv) {
    int digits = 0;
    if (argc == 2) {
        if (isNull(argv[1])) {
            sqlite3_result_null(context);
            return;
        }
        digits = sqlite3_value_int(argv[1]);
    }
    if (isNull(argv[0])) {
        sqlite3_result_null(context);
        return;
    }
    sqlite3_result_double(context, legacyRound(sqlite3_value_double(argv[0]), digits));
}

using SqlFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

struct FunctionEntry {
    const char* name;
    int argumentCount;
    SqlFunction function;
};

constexpr FunctionEntry kFunctions[] = {
    {"pi", 0, piFunction},
    {"pow", 2, powFunction},
    {"sign", 1, signFunction},
    {"square", 1, squareFunction},
    {"degrees", 1, unaryFunction<degreesOf>},
    {"radians", 1, unaryFunction<radiansOf>},
    {"floor", 1, floorFunction},
    {"sqrt", 1, unaryFunction<sqrtOf>},
    {"exp", 1, unaryFunction<expOf>},
    {"log", 1, unaryFunction<logOf>},
    {"log10", 1, unaryFunction<log10Of>},
    {"cos", 1, unaryFunction<cosOf>},
    {"sin", 1, unaryFunction<sinOf>},
    {"tan", 1, unaryFunction<tanOf>},
    {"cot", 1, unaryFunction<cotOf>},
    {"acos", 1, unaryFunction<acosOf>},
    {"asin", 1, unaryFunction<asinOf>},
    {"atan", 1, unaryFunction<atanOf>},
    {"cosh", 1, unaryFunction<coshOf>},
    {"sinh", 1, unaryFunction<sinhOf>},
    {"tanh", 1, unaryFunction<tanhOf>},
    {"coth", 1, unaryFunction<cothOf>},
    {"acosh", 1, unaryFunction<acoshOf>},
    {"asinh", 1, unaryFunction<asinhOf>},
    {"atanh", 1, unaryFunction<atanhOf>},
    {"round", 1, roundFunction},
    {"round", 2, roundFunction},
};

// Called by SQLite for every connection it opens.
int functionsEntry(sqlite3* db, const char** errorMessage, const sqlite3_api_routines*) {
    const int code = addSqlFunctions(db);
    if (code != SQLITE_OK && errorMessage != nullptr) {
        *errorMessage = sqlite3_mprintf("%s", sqlite3_errstr(code));
    }
    return code;
}

}  // namespace

int addSqlFunctions(sqlite3* db) {
    for (const FunctionEntry& entry : kFunctions) {
        const int code = sqlite3_create_function(db, entry.name, entry.argumentCount,
                                                 SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                                 entry.function, nullptr, nullptr);
        if (code != SQLITE_OK) {
            return code;
        }
    }
    return SQLITE_OK;
}

int registerSqlFunctions() {
    static std::once_flag once;
    static int result = SQLITE_OK;
    std::call_once(once, [] {
        result = sqlite3_auto_extension(reinterpret_cast<void (*)()>(&functionsEntry));
    });
    return result;
}

}  // namespace orvane::sql
