#include "tasks/task_texts.h"

#include <cstddef>

namespace orvane {

TaskTexts loadTaskTexts(const TextLookup& lookup) {
    TaskTexts t;
    const auto co = [&](int key) { return lookup("orvCoSystem", key); };
    t.typeNames = {co(2), co(3), co(50)};
    t.positionNames = {co(5), co(6), co(7)};
    t.planeNames = {co(9), co(10), co(11)};
    t.systemNames = {co(13), co(14), co(15)};
    t.placeNames = {co(17), co(18)};
    t.degreeSign = co(28);
    t.minuteSign = co(29);
    t.secondSign = co(30);
    t.metresInBrackets = co(31);
    t.east = co(32);
    t.west = co(33);
    t.north = co(34);
    t.south = co(35);

    for (std::size_t body = 0; body < t.bodyNames.size(); ++body) {
        t.bodyNames[body] = lookup("orvPlanets", static_cast<int>(body) + 1);
    }

    const auto options = [&](int key) { return lookup("orvElementsOptions", key); };
    t.typeLabel = options(62);
    t.centreSunLine = options(52);
    t.centreLabel = options(53);

    const auto edit = [&](int key) { return lookup("orvEdit", key); };
    t.ephemeridesOf = edit(30);
    t.closeApproachesOf = edit(32);
    t.km = edit(33);
    t.au = edit(34);
    t.kmPerSecond = edit(35);
    t.auPerDay = edit(36);
    t.rad = edit(37);
    t.deg = edit(38);
    t.radPerDay = edit(39);
    t.degPerDay = edit(40);
    t.year = edit(41);
    t.jd = edit(42);
    t.day = edit(19);
    t.notAvailable = edit(43);
    t.arcsecPerHour = edit(154);
    t.arcsecPerHourShort = edit(155);
    t.epochLabel = edit(44);
    t.epochWord = edit(91);
    // Keys 45 to 53 are Mercury to Pluto, 54 the Sun.
    t.approachLabels[0] = edit(54);
    for (int body = 1; body <= 9; ++body) t.approachLabels[static_cast<std::size_t>(body)] = edit(44 + body);
    t.noCloseApproaches = edit(56);
    t.noInterval = edit(57);
    t.orbitLabel = edit(156);
    t.orbitHeader = edit(157);
    t.hillLabel = edit(166);
    t.hillHeader = edit(167);
    t.classNames = {edit(165), edit(158), edit(159), edit(160), edit(161), edit(162), edit(163), edit(164)};
    t.messageTitle = edit(64);

    t.errorTitle = lookup("orvElementsOptions", 39);
    t.folderMissing = lookup("orvElementsOptions", 31);

    const auto orbits = [&](int key) { return lookup("orvOrbits", key); };
    t.writingStopped = orbits(27);
    t.stoppedBecause = orbits(31);
    t.tryOtherStep = orbits(33);
    t.continueWithoutFile = orbits(37);
    t.cometWord = orbits(35);
    t.leftSolarSystem = orbits(36);
    return t;
}

}  // namespace orvane
