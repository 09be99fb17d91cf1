#include "tasks/option_rules.h"

#include "astro/observatories.h"

namespace orvane {

void ApplyOptionRules(TaskOptions& o) {
    if (o.ephemerisType == 1 || o.ephemerisType == 2) {
        o.coordinateKind = 1;
        if (o.mainPlane == 2) o.mainPlane = 0;
        if (o.referenceSystem == 2) o.referenceSystem = 0;
        if (o.ephemerisType == 2) o.observerPlace = 0;
    } else {
        o.centralBody = 3;
        if (o.coordinateKind == 0 && o.referenceSystem == 2) o.referenceSystem = 0;
        if (o.coordinateKind == 1 && o.mainPlane == 2) o.mainPlane = 0;
        if (o.mainPlane == 2) o.observerPlace = 1;
    }
    if (o.centralBody != 3) o.observerPlace = 0;
}

void DeriveObserverOf(TaskOptions& o) {
    ObserverSettings settings;
    settings.latitudeDeg = o.latitudeDeg;
    settings.latitudeMin = o.latitudeMin;
    settings.latitudeSec = o.latitudeSec;
    settings.latitudeSouth = o.latitudeHemisphere;
    settings.longitudeDeg = o.longitudeDeg;
    settings.longitudeMin = o.longitudeMin;
    settings.longitudeSec = o.longitudeSec;
    settings.longitudeWest = o.longitudeHemisphere;
    settings.altitude = o.altitude;
    const ObserverPlace place = DeriveObserver(settings);
    o.latitudeDegrees = place.latitudeDegrees;
    o.longitudeDegrees = place.longitudeDegrees;
    o.observerRhoCos = place.rhoCos;
    o.observerRhoSin = place.rhoSin;
}

}  // namespace orvane
