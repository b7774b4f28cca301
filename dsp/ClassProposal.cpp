#include "dsp/ClassProposal.h"

#include "dsp/CallFeatures.h"

#include <algorithm>
#include <cmath>

namespace {

const QString noSub = QStringLiteral("No Sub");

/// A species group: longer than the first, up to and including the second number, likewise the frequency.
struct SpeciesGroup
{
    const char* name;
    double overDuration;
    double upToDuration;
    double overFreq;
    double upToFreq;
};

constexpr SpeciesGroup pipGroups[] = {
    {"PipNat", 0.0029, 0.018, 35.0, 41.2}, {"PipPn", 0.0029, 0.018, 41.2, 42.5},
    {"PipPip", 0.002, 0.018, 42.5, 49.5},  {"PipPp", 0.002, 0.015, 49.5, 51.0},
    {"PipPyg", 0.002, 0.015, 51.0, 64.0},
};

// The lowest group needs no lower bound of its own: below 8 kHz nothing is called "Nyc".
constexpr SpeciesGroup nycGroups[] = {
    {"NycLow", 0.0059, 0.028, 0.0, 15.0},
    {"NycNoc", 0.0059, 0.032, 15.0, 21.0},
    {"NycMid", 0.005, 0.03, 21.0, 26.5},
    {"Enil", 0.005, 0.025, 26.5, 31.2},
};

template <std::size_t Count>
QString subgroup(const SpeciesGroup (&groups)[Count], double duration, double endFreq)
{
    const auto* const group =
        std::find_if(std::begin(groups), std::end(groups), [=](const SpeciesGroup& candidate) {
            return candidate.overDuration < duration && duration <= candidate.upToDuration &&
                   candidate.overFreq < endFreq && endFreq <= candidate.upToFreq;
        });
    return group == std::end(groups) ? noSub : QString::fromLatin1(group->name);
}

int count(const QStringList& classes, const char* part)
{
    const QString text = QString::fromLatin1(part);
    return static_cast<int>(std::count_if(classes.begin(), classes.end(),
                                          [&](const QString& entry) { return entry.contains(text); }));
}

QString nycResult(const QStringList& classes)
{
    const int low = count(classes, "NycLow");
    const int noc = count(classes, "NycNoc");
    const int mid = count(classes, "NycMid");
    if (low > noc && low > mid)
        return QStringLiteral("NycLow");
    if (noc > low && noc > mid)
        return QStringLiteral("NycNoc");
    if (mid > low && mid > noc)
        return QStringLiteral("NycMid");
    return QStringLiteral("Nyc");
}

QString pipResult(const QStringList& classes)
{
    const int nat = count(classes, "PipNat");
    const int pn = count(classes, "PipPn");
    const int pip = count(classes, "PipPip");
    const int pp = count(classes, "PipPp");
    const int pyg = count(classes, "PipPyg");
    const auto largest = [=](int one) {
        return (one == nat) + (one == pn) + (one == pip) + (one == pp) + (one == pyg) == 1 &&
               one == std::max({nat, pn, pip, pp, pyg});
    };
    // Neighbouring groups overlap in pitch: three quarters of the two are enough.
    const auto outweighs = [](int one, int neighbour) { return one > 0.75 * (one + neighbour); };
    if (largest(nat) || outweighs(nat, pn))
        return QStringLiteral("PipNat");
    if (largest(pn))
        return QStringLiteral("PipPn");
    if (largest(pip) || outweighs(pip, pn) || outweighs(pip, pp))
        return QStringLiteral("PipPip");
    if (largest(pp))
        return QStringLiteral("PipPp");
    if (largest(pyg) || outweighs(pyg, pp))
        return QStringLiteral("PipPyg");
    return QStringLiteral("Pip");
}

} // namespace

QStringList classify(double duration, double startFreq, double endFreq)
{
    if (duration > 0.036 && std::abs(startFreq - endFreq) < 5.0)
        return {QStringLiteral("Test"), noSub};
    const bool nyc = duration > 0.0029 && duration <= 0.036 && endFreq > 8.0 && endFreq <= 33.0;
    if (nyc)
        return {QStringLiteral("Nyc"), subgroup(nycGroups, duration, endFreq)};
    const bool pip = duration > 0.0015 && duration <= 0.02 && endFreq > 33.0 && endFreq <= 65.0;
    if (pip)
        return {QStringLiteral("Pip"), subgroup(pipGroups, duration, endFreq)};
    return {QStringLiteral("Noise"), noSub};
}

bool isNoise(const QStringList& proposal, const CallFeatures& features, bool lowPitched)
{
    if (!features.measured)
        return true;
    const QString& genus = proposal.at(0);
    const int switches = features.switchCount;
    const int zeros = features.zeroCount;
    const int up = features.posHist;
    const int down = features.negHist;
    if (genus == QLatin1String("Nyc") && proposal.at(1) != QLatin1String("Enil"))
        return lowPitched || switches < zeros - 2 || switches >= 2 || down > 6 || up >= 3;
    if (genus == QLatin1String("Pip"))
        return lowPitched || up > 2 || down > 9 || up > down + 1 || switches < zeros - 1 || switches >= 3;
    if (genus == QLatin1String("Test"))
        return lowPitched && !(up < 2 && down < 2);
    return lowPitched;
}

QString classText(const QStringList& proposal)
{
    return proposal.at(1) == noSub ? proposal.at(0) : proposal.at(1);
}

QString proposeFileClass(const QStringList& classes)
{
    const int tests = count(classes, "Test");
    if (tests != 0 || tests + count(classes, "Noise") > 0.9 * classes.size())
        return QStringLiteral("No call");

    QStringList results;
    const int enil = count(classes, "Enil");
    if (count(classes, "Nyc") != 0)
        results << nycResult(classes);
    else if (enil != 0)
        results << (enil < 3 ? QStringLiteral("Nyc") : QStringLiteral("Enil"));
    if (count(classes, "Pip") != 0)
        results << pipResult(classes);
    return results.join(QStringLiteral(", "));
}
