#include "tools/DemoNight.h"

#include "tools/Soundscape.h"

#include <algorithm>

namespace {

using Container = DemoRecording::Container;

constexpr Container wav = Container::Wav;
constexpr Container plain = Container::WavWithoutBext;
constexpr Container raw = Container::Raw;

/// A line of the night: before midnight the clock shows 21 to 23 hours, after it 0 to 5.
struct Line
{
    const char* clock;
    double length;
    int kiloHertz;
    Container container;
    const char* record;
    void (*scene)(Soundscape&);
    /// What the recorder made of it: the number of calls, the kind of event, then each group and each species
    /// with a quality in percent. "-" is an empty field; nothing at all: a recording that it left out.
    const char* analysis;
};

/// A bat that passes at `passTime` s, `closest` m away at `speed` m/s.
BatPass past(double passTime, double closest, double speed)
{
    BatPass pass;
    pass.passTime = passTime;
    pass.closest = closest;
    pass.speed = speed;
    pass.firstCall = 0.4;
    return pass;
}

BatPass hunting(double passTime, double closest, double speed, double buzzAt)
{
    BatPass pass = past(passTime, closest, speed);
    pass.buzzAt = buzzAt;
    return pass;
}

BatPass during(BatPass pass, double from, double until)
{
    pass.from = from;
    pass.until = until;
    return pass;
}

constexpr double pip39 = 38.6e3;
constexpr double pip45 = 45.6e3;
constexpr double pip55 = 54.5e3;
constexpr double greaterHorseshoe = 81.5e3;
constexpr double lesserHorseshoe = 110.5e3;

/// Nothing near that throws calls back.
constexpr Soundscape::Surroundings openSky = {1.7, 0.0, 0.0, 0.01};
/// Close to water: one clear echo, so close that it cuts notches into broad-band calls.
constexpr Soundscape::Surroundings overWater = {0.045, 0.45, 0.006, 0.01};
/// A clearing in a wood.
constexpr Soundscape::Surroundings clearing = {2.4, 0.14, 0.034, 0.016};

void noctuleHigh(Soundscape& s)
{
    s.setSurroundings(openSky);
    s.addPass(Voice::noctule(), past(1.3, 34, 11));
}

void noctulesTwo(Soundscape& s)
{
    s.setSurroundings(openSky);
    s.addPass(Voice::noctule(), past(1.0, 22, 10));
    s.addPass(Voice::noctule(), past(2.9, 40, 9));
}

void leisler(Soundscape& s)
{
    s.setSurroundings(openSky);
    s.addPass(Voice::leislersBat(), past(0.9, 28, 9));
}

void pip45Near(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip45), past(0.8, 4, 6));
}

void pip45Faint(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip45), past(0.6, 12, 5));
}

void pip45Hunt(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip45), hunting(0.9, 4, 5, 0.8));
}

void pip45And55(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip45), past(0.7, 4.5, 6));
    s.addPass(Voice::pipistrelle(pip55), past(1.3, 4, 5));
}

void pip55Near(Soundscape& s)
{
    s.setSurroundings(clearing);
    s.addPass(Voice::pipistrelle(pip55), past(0.8, 5, 5));
}

void pip55Hunt(Soundscape& s)
{
    s.setSurroundings(clearing);
    s.addPass(Voice::pipistrelle(pip55), hunting(0.9, 3.5, 4, 0.75));
}

void pip39Near(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip39), past(1.0, 8, 7));
}

void pip39Faint(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip39), past(1.4, 16, 6));
}

void pipSocial(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip45), past(0.9, 3, 4));
    s.addPass(Voice::pipistrelleSocial(), past(0.9, 3, 4));
}

void noctuleSinging(Soundscape& s)
{
    s.setSurroundings(clearing);
    s.addPass(Voice::noctuleSong(), past(0.8, 4, 0.5));
}

void serotineNear(Soundscape& s)
{
    s.addPass(Voice::serotine(), past(0.9, 11, 7));
}

void serotineHunt(Soundscape& s)
{
    s.addPass(Voice::serotine(), hunting(1.5, 7, 6, 1.4));
}

void serotineAndPip(Soundscape& s)
{
    s.setSurroundings(clearing);
    s.addPass(Voice::serotine(), past(0.7, 6, 7));
    s.addPass(Voice::pipistrelle(pip45), past(1.2, 7, 5));
}

void northernBat(Soundscape& s)
{
    s.addPass(Voice::northernBat(), past(1.0, 22, 7));
}

void myotisClearing(Soundscape& s)
{
    s.setSurroundings(clearing);
    s.addPass(Voice::myotis(), past(0.7, 3, 5));
}

void myotisWater(Soundscape& s)
{
    s.setSurroundings(overWater);
    s.addPass(Voice::myotis(), hunting(1.0, 2.5, 4, 1.3));
}

void barbastelle(Soundscape& s)
{
    s.setSurroundings(clearing);
    s.addPass(Voice::barbastelle(), past(0.6, 4, 7));
}

void longEared(Soundscape& s)
{
    s.setSurroundings(clearing);
    s.addPass(Voice::longEaredBat(), past(0.6, 1.5, 3));
}

void horseshoe82(Soundscape& s)
{
    s.addPass(Voice::horseshoe(greaterHorseshoe), past(1.1, 2.5, 5));
}

void horseshoe110(Soundscape& s)
{
    s.addPass(Voice::horseshoe(lesserHorseshoe), past(0.6, 1.8, 4));
}

/// A full five seconds: a hunting pipistrelle, a noctule above it, a second pipistrelle that comes and goes.
void busyHedge(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip45), hunting(1.6, 3.5, 4, 1.5));
    s.addPass(Voice::noctule(), past(3.0, 26, 10));
    s.addPass(Voice::pipistrelle(pip55), during(past(4.0, 4, 6), 2.6, 5.0));
    s.addCrickets(18.5e3, 1.6, -44.0);
}

void swarmingAtRoost(Soundscape& s)
{
    s.addPass(Voice::pipistrelle(pip45), past(0.5, 1.2, 4));
    s.addPass(Voice::pipistrelle(pip45 + 1.6e3), past(1.2, 3, 5));
    s.addPass(Voice::pipistrelle(pip45 - 1.1e3), past(1.9, 1.6, 4));
    s.addPass(Voice::pipistrelleSocial(), during(past(1.2, 3, 4), 0.7, 1.7));
}

void crickets(Soundscape& s)
{
    s.addCrickets(17.5e3, 2.2, -24.0);
    s.addCrickets(22.5e3, 3.1, -36.0);
}

void cricketsAndPip(Soundscape& s)
{
    s.addCrickets(16.8e3, 2.0, -30.0);
    s.addPass(Voice::pipistrelle(pip45), past(0.8, 6, 6));
}

void rain(Soundscape& s)
{
    s.addRain(160);
    s.addWind(-44);
}

void drizzle(Soundscape& s)
{
    s.addRain(28);
}

void rainAndNoctule(Soundscape& s)
{
    s.addRain(40);
    s.addPass(Voice::noctule(), past(1.0, 26, 10));
}

void wind(Soundscape& s)
{
    s.addWind(-24);
}

void silence(Soundscape&)
{}

/// The class names are those of the default class trees.
constexpr Line lines[] = {
    {"21:41:17", 1.5, 384, wav, "", pip45Hunt, "31 bat Pipistrelloid 99 - - Ppip 94 PpPp 3"},
    {"21:45:03", 3.5, 384, wav, "Nyc|old comment", noctulesTwo, "9 bat Nyctaloid 97 - - Nnoc 90 Nlow 12"},
    {"21:48:26", 1.5, 250, wav, "", noctuleHigh, "4 bat Nyctaloid 88 - - Nnoc 71 Nycmi 20"},
    {"21:52:40", 2.0, 500, wav, "Pip|Pip|1|", pip45Near, "22 bat Pipistrelloid 98 - - Ppip 92"},
    {"21:55:31", 2.5, 384, wav, "Nnoc|Nyc|0|", noctuleHigh, "6 bat Nyctaloid 91 - - Nnoc 84"},
    {"21:58:09", 5.0, 500, wav, "", busyHedge,
     "58 bat Pipistrelloid 97 Nyctaloid 83 Ppip 90 Ppyg 76 Nnoc 68"},
    {"22:01:44", 2.0, 384, wav, "Pip + Ppyg|Pip|0|two calls", pip45And55,
     "27 bat Pipistrelloid 98 - - Ppip 85 Ppyg 81"},
    {"22:06:12", 1.0, 250, wav, "|No Call|0|", silence, "0 test - - - -"},
    {"22:10:55", 2.0, 384, wav, "", serotineNear, "8 bat Nyctaloid 94 - - Nycmi 77 Enil 15"},
    {"22:14:20", 1.5, 500, raw, "", pip45Near, ""},
    {"22:19:02", 1.5, 384, wav, "", leisler, "5 bat Nyctaloid 86 - - Nlow 69 Nycmi 33"},
    {"22:23:37", 1.5, 384, wav, "Ppyg|PipPyg|0|", pip55Near, "16 bat Pipistrelloid 99 - - Ppyg 95"},
    {"22:30:11", 1.2, 500, wav, "", myotisClearing, "14 bat Myotis 74 - -"},
    {"22:36:48", 2.0, 384, wav, "Pip|Pip|0|social calls", pipSocial,
     "19 bat Pipistrelloid 93 Social 61 Ppip 88"},
    {"22:41:05", 1.5, 250, wav, "", crickets, "0 noise - - - -"},
    {"22:47:29", 2.5, 384, wav, "", serotineHunt, "21 bat Nyctaloid 95 - - Nycmi 80"},
    {"22:55:16", 1.8, 500, wav, "", horseshoe82, ""},
    {"23:03:54", 2.0, 384, wav, "", pip39Near, "11 bat Pipistrelloid 96 - - Pnat 82 PpPn 17"},
    {"23:10:30", 1.0, 384, wav, "", longEared, "3 bat - - - -"},
    {"23:18:22", 2.0, 500, raw, "", myotisWater, ""},
    {"23:26:07", 1.5, 384, wav, "", cricketsAndPip, "9 bat Pipistrelloid 81 - - Ppip 74"},
    {"23:33:41", 1.2, 500, wav, "", horseshoe110, ""},
    {"23:42:18", 1.2, 384, wav, "", barbastelle, "4 bat Nyctaloid 41 - -"},
    {"23:51:09", 1.5, 384, plain, "", pip45Faint, "3 bat Pipistrelloid 67 - - Pip 67 PpPp 52"},
    {"23:58:46", 1.8, 384, wav, "", serotineAndPip, "20 bat Nyctaloid 92 Pipistrelloid 79 Nycmi 81 Ppip 70"},
    {"00:07:33", 1.5, 384, wav, "", pip55Hunt, "29 bat Pipistrelloid 99 - - Ppyg 97"},
    {"00:19:12", 1.5, 250, wav, "", wind, "0 noise - - - -"},
    {"00:31:50", 2.0, 384, wav, "Enil|Enil|1|", northernBat, "7 bat Nyctaloid 90 - - Enil 79 Nycmi 14"},
    {"00:44:05", 1.5, 384, wav, "", drizzle, "2 noise - - - -"},
    {"00:52:27", 2.0, 384, wav, "|No Call|0|", rain, "11 noise - - - -"},
    {"01:06:38", 2.0, 384, wav, "", rainAndNoctule, "4 bat Nyctaloid 58 - - Nyc 58"},
    {"01:25:14", 0.5, 500, wav, "", silence, "0 test - - - -"},
    {"01:48:51", 1.8, 384, wav, "", pip39Faint, "5 bat Pipistrelloid 84 - - PpPn 63 Pnat 55"},
    {"02:10:03", 1.5, 384, wav, "", noctuleSinging, "6 bat Nyctaloid 52 - - Nyc 52"},
    {"02:33:29", 1.0, 500, raw, "", horseshoe110, ""},
    {"02:57:46", 1.0, 384, wav, "", myotisClearing, "13 bat Myotis 70 - -"},
    {"03:14:20", 1.5, 384, wav, "", pip45Hunt, "26 bat Pipistrelloid 98 - - Ppip 93"},
    {"03:36:58", 2.0, 250, wav, "", serotineNear, "8 bat Nyctaloid 90 - - Nycmi 72"},
    {"03:55:37", 1.0, 384, wav, "", longEared, ""},
    {"04:12:09", 2.5, 500, wav, "", swarmingAtRoost, "74 bat Pipistrelloid 99 Social 77 Ppip 96 PpPp 31"},
    {"04:27:42", 2.0, 384, wav, "Pip|Pip|0|at the roost", pipSocial, "17 bat Pipistrelloid 95 - - Ppip 89"},
    {"04:49:15", 2.5, 384, wav, "", noctuleHigh, "5 bat Nyctaloid 89 - - Nnoc 77"},
};

QList<QByteArray> fieldsOf(const QByteArray& analysis)
{
    if (analysis.isEmpty())
        return {};
    QList<QByteArray> fields = analysis.split(' ');
    std::replace(fields.begin(), fields.end(), QByteArray("-"), QByteArray());
    return fields;
}

} // namespace

std::vector<DemoRecording> demoNight()
{
    const QDate evening(2026, 6, 12);
    std::vector<DemoRecording> night;
    std::uint32_t seed = 20260612;
    for (const Line& line : lines) {
        const QTime clock = QTime::fromString(QLatin1String(line.clock), QStringLiteral("HH:mm:ss"));
        const QDate day = clock.hour() < 12 ? evening.addDays(1) : evening;
        night.push_back({QDateTime(day, clock), line.kiloHertz * 1000, line.length, line.container,
                         QByteArray(line.record), line.scene, seed++, fieldsOf(line.analysis)});
    }
    return night;
}
