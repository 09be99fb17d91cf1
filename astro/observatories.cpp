#include "astro/observatories.h"

#include <cmath>
#include <cstring>
#include <fstream>

#include "astro/frames.h"

namespace orvane {

int ObservatoryNumber(std::string_view code, int& number) {
    number = 0;
    if (code.size() < 3) return -1;
    const char lead = code[0];
    int hundreds;
    if (lead >= '0' && lead <= '9') {
        hundreds = lead - 48;
    } else if (lead >= 'A' && lead <= 'Z') {
        hundreds = lead - 55;
    } else {
        return -1;
    }
    if (code[1] < '0' || code[1] > '9' || code[2] < '0' || code[2] > '9') return -1;
    number = 100 * hundreds + (code[1] - '0') * 10 + (code[2] - '0');
    return 0;
}

namespace {

constexpr int kHighestObservatory = 3599;  // "Z99"
constexpr int kNameLength = 50;
constexpr int kRecordContent = 3 * 8 + kNameLength;

ObservatoryRecord Failure(int status, const char* message) {
    ObservatoryRecord record;
    record.status = status;
    record.number = 0;
    record.message = message;
    return record;
}

double DoubleAt(const char* bytes) {
    double value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

}  // namespace

ObservatoryRecord ReadObservatory(const std::filesystem::path& file, int number) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return Failure(-1, kObservatoriesOpenError);
    if (number < 0 || number > kHighestObservatory) return Failure(-2, kObservatoriesReadError);

    char bytes[kRecordContent];
    in.seekg(static_cast<std::streamoff>(number) * kObservatoryRecordBytes);
    if (!in || !in.read(bytes, kRecordContent)) return Failure(-2, kObservatoriesReadError);

    ObservatoryRecord record;
    record.number = number;
    record.observatory.longitude = DoubleAt(bytes);
    record.observatory.rhoCos = DoubleAt(bytes + 8);
    record.observatory.rhoSin = DoubleAt(bytes + 16);
    record.observatory.name.assign(bytes + 24, kNameLength);
    // Fixed-width text: whatever follows a NUL is blank.
    const std::size_t nul = record.observatory.name.find('\0');
    if (nul != std::string::npos) {
        for (std::size_t i = nul; i < record.observatory.name.size(); ++i) record.observatory.name[i] = ' ';
    }
    return record;
}

void ObservatoryPlace(const double earth[3], const Observatory& observatory, JulianDate jdUT, double place[3]) {
    const double angle = observatory.longitude / 57.29577950746313 + SiderealAngle(jdUT);
    const double scale = -4.263475935828877e-05;
    place[0] = -earth[0] + observatory.rhoCos * std::cos(angle) * scale;
    place[1] = -earth[1] + observatory.rhoCos * std::sin(angle) * scale;
    place[2] = -earth[2] + observatory.rhoSin * scale;
}

ObserverPlace DeriveObserver(const ObserverSettings& settings) {
    ObserverPlace place;
    place.latitudeDegrees = settings.latitudeDeg + settings.latitudeMin / 60.0 + settings.latitudeSec / 3600.0;
    if (settings.latitudeSouth == 1) place.latitudeDegrees = -place.latitudeDegrees;
    place.longitudeDegrees = settings.longitudeDeg + settings.longitudeMin / 60.0 + settings.longitudeSec / 3600.0;
    if (settings.longitudeWest == 1) place.longitudeDegrees = 360.0 - place.longitudeDegrees;

    // Geodetic to rectangular on the meridian of longitude 0: x and z are the distances
    // from the axis and from the equator plane.
    const StationCoordinates xyz = ConvertStation(settings.altitude, place.latitudeDegrees * 3600.0, 0.0, 32);
    place.rhoCos = xyz.a / 6378137.0;
    place.rhoSin = xyz.c / 6378137.0;
    return place;
}

}  // namespace orvane
