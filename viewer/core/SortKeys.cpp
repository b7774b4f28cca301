#include "viewer/core/SortKeys.h"

#include <QDate>

#include <array>

namespace {

/// The three numbers of two digits in "12x34x56", x being `separator`; false for any other form.
bool threePairs(const QString& text, QChar separator, std::array<int, 3>& pairs)
{
    if (text.size() != 8 || text.at(2) != separator || text.at(5) != separator)
        return false;
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const int tens = text.at(static_cast<int>(3 * i)).unicode() - u'0';
        const int ones = text.at(static_cast<int>(3 * i + 1)).unicode() - u'0';
        if (tens < 0 || tens > 9 || ones < 0 || ones > 9)
            return false;
        pairs[i] = 10 * tens + ones;
    }
    return true;
}

constexpr double beforeAll = -1.0;
constexpr double secondsPerDay = 24 * 60 * 60;
constexpr int century = 1900; // as a date parser takes "yy"

} // namespace

double SortKeys::timeOfDay(const QString& time)
{
    std::array<int, 3> hms{};
    if (!threePairs(time, QLatin1Char(':'), hms) || hms[0] > 23 || hms[1] > 59 || hms[2] > 59)
        return beforeAll;
    return 3600.0 * hms[0] + 60.0 * hms[1] + hms[2];
}

double SortKeys::instant(const QString& date, const QString& time)
{
    std::array<int, 3> dmy{};
    if (!threePairs(date, QLatin1Char('/'), dmy))
        return beforeAll;
    const QDate day(century + dmy[2], dmy[1], dmy[0]);
    const double seconds = timeOfDay(time);
    if (!day.isValid() || seconds < 0)
        return beforeAll;
    return secondsPerDay * static_cast<double>(day.toJulianDay()) + seconds;
}

double SortKeys::number(const QString& text, const QLocale& locale)
{
    return locale.toDouble(text);
}
