#ifndef SONAVIA_EVALUATION_CORE_VANTOREXPORT_H
#define SONAVIA_EVALUATION_CORE_VANTOREXPORT_H

#include "classes/core/ClassTree.h"
#include "evaluation/core/TimeZoneChoice.h"
#include "recordings/RecordingRow.h"

#include <QStringList>
#include <QVector>

/// The file for the Vantor tool: the times of the bats' recordings on its own clock, UTC+2 all year, and
/// their classes.
///
///     DateTime (MESZ, UTC+2);Class1;Class2;Class3;Class4
///     01.08.2017 22:15:00;Pip;Nyc;;
///
/// Lines end in CR LF; nothing is quoted. A value made from the rows of a list; later changes of the rows do
/// not reach it.
class VantorExport
{
public:
    /// Takes those of `rows` that have a main class and in any slot one of `names`.
    VantorExport(const QVector<RecordingRow>& rows, const QStringList& names);

    /// The years of the recordings, in order of first appearance, on the recorder's clock.
    QVector<int> years() const;

    /// With `year`, all times are first moved to it by whole years, with the 29th of February becoming the
    /// 28th in a year without. The shift of the clock is that of the moved time, and a time that it takes
    /// across New Year stays there. An unknown time gives an empty field.
    QString text(const TimeZoneChoice& time) const { return text(time, 0); }
    QString text(const TimeZoneChoice& time, int year) const;

    /// The names that Vantor knows for bats, in view mode 4 in the spelling of recorders.
    static QStringList speciesCodes(int viewMode);
    /// The classes of a Vantor folder evaluation.
    static ClassTree classTree();

private:
    struct Line
    {
        QDateTime wallClock;
        std::array<QString, ClassRecord::slotCount> classes;
    };

    QVector<Line> m_lines;
};

#endif
