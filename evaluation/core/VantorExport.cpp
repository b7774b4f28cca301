#include "evaluation/core/VantorExport.h"

#include "evaluation/core/ClassChoice.h"

namespace {

constexpr int vantorOffset = 2 * 3600; // s east of UTC
constexpr int usualLineLength = 40;    // characters

void appendNumber(QString& text, int number, int width)
{
    text += QString::number(number).rightJustified(width, QLatin1Char('0'));
}

/// "dd.MM.yyyy hh:mm:ss" in plain digits, whatever the computer's locale is.
void appendTime(QString& text, const QDateTime& dateTime)
{
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    appendNumber(text, date.day(), 2);
    text += QLatin1Char('.');
    appendNumber(text, date.month(), 2);
    text += QLatin1Char('.');
    appendNumber(text, date.year(), 4);
    text += QLatin1Char(' ');
    appendNumber(text, time.hour(), 2);
    text += QLatin1Char(':');
    appendNumber(text, time.minute(), 2);
    text += QLatin1Char(':');
    appendNumber(text, time.second(), 2);
}

} // namespace

VantorExport::VantorExport(const QVector<RecordingRow>& rows, const QStringList& names)
{
    const QSet<QString> wanted(names.cbegin(), names.cend());
    for (const RecordingRow& row : rows)
        if (!row.record.isUnassigned() && ClassChoice::isChosen(row.record, wanted))
            m_lines.append({TimeZoneChoice::wallClock(row.date, row.time), row.record.classes});
}

QVector<int> VantorExport::years() const
{
    QVector<int> years;
    for (const Line& line : m_lines)
        if (line.wallClock.isValid() && !years.contains(line.wallClock.date().year()))
            years.append(line.wallClock.date().year());
    return years;
}

QString VantorExport::text(const TimeZoneChoice& time, int year) const
{
    QString text = QStringLiteral("DateTime (MESZ, UTC+2);Class1;Class2;Class3;Class4\r\n");
    text.reserve(text.size() + m_lines.size() * usualLineLength);
    for (const Line& line : m_lines) {
        if (line.wallClock.isValid()) {
            const QDateTime moved =
                year > 0 ? line.wallClock.addYears(year - line.wallClock.date().year()) : line.wallClock;
            appendTime(text, time.utc(moved).addSecs(vantorOffset));
        }
        for (const QString& name : line.classes)
            text += QLatin1Char(';') + name;
        text += QLatin1String("\r\n");
    }
    return text;
}

QStringList VantorExport::speciesCodes(int viewMode)
{
    const QString codes =
        viewMode == 4 ? QStringLiteral("Ppyg,PpPp,Ppip,PpPn,Pnat,Pip,Enil,Nycmi,Nnoc,Nlow,Nyc")
                      : QStringLiteral("PipPyg,PipPp,PipPip,PipPn,PipNat,Pip,Enil,NycMid,NycNoc,NycLow,Nyc");
    return codes.split(QLatin1Char(','));
}

ClassTree VantorExport::classTree()
{
    // <D> is there twice: its key assigns the first.
    return ClassTree::fromText(QStringLiteral("Nyc\t<A>\n\tNycLow\t<B>\n\tNycNoc\t<C>\n\tNycMid\t<D>\n"
                                              "\tEnil\t<E>\nPip\t<D>\n\tPipNat\t<F>\n\tPipPn\t<G>\n"
                                              "\tPipPip\t<H>\n\tPipPp\t<I>\n\tPipPyg\t<J>\nNo Call\t<K>\n"));
}
