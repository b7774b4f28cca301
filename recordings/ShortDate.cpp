#include "recordings/ShortDate.h"

#include <QDate>

namespace {

/// The number in `length` decimal digits at `from`, or -1. Parsed by hand: QDate::fromString() takes longer
/// than everything else that is done with a file's header.
int digits(const QString& text, int from, int length)
{
    int number = 0;
    for (int i = from; i < from + length; ++i) {
        const int digit = text.at(i).unicode() - u'0';
        if (digit < 0 || digit > 9)
            return -1;
        number = 10 * number + digit;
    }
    return number;
}

QString shortDate(int year, int month, int day)
{
    if (year < 0 || !QDate::isValid(year, month, day))
        return {};
    const QLatin1Char zero('0');
    return QStringLiteral("%1/%2/%3")
        .arg(day, 2, 10, zero)
        .arg(month, 2, 10, zero)
        .arg(year % 100, 2, 10, zero);
}

} // namespace

QString shortDateFromMonthFirst(const QString& text)
{
    if (text.size() != 8 || text.at(2) != QLatin1Char('/') || text.at(5) != QLatin1Char('/'))
        return {};
    const int year = digits(text, 6, 2);
    return shortDate(year < 0 ? -1 : 2000 + year, digits(text, 0, 2), digits(text, 3, 2));
}

QString shortDateFromIso(const QString& text)
{
    if (text.size() != 10 || text.at(4) != QLatin1Char('-') || text.at(7) != QLatin1Char('-'))
        return {};
    return shortDate(digits(text, 0, 4), digits(text, 5, 2), digits(text, 8, 2));
}
