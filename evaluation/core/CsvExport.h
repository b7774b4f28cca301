#ifndef SONAVIA_EVALUATION_CORE_CSVEXPORT_H
#define SONAVIA_EVALUATION_CORE_CSVEXPORT_H

#include "evaluation/core/ClassChoice.h"
#include "evaluation/core/ClassEvents.h"
#include "evaluation/core/TimeZoneChoice.h"

/// The table of a classified folder, one line per recording. A plain value: what the user chose, and the text
/// that it makes of a list.
///
///     FileName;Date;Time [UTC+01:00];Length [s];Class1;Class2;Class3;Class4;5min class event
///     (dynamic);Comment M00042.wav;01/08/17;22:15:00;3.000;Pip;Nyc;;;Pip,Nyc;two calls
///
/// Fields are separated by semicolons and lines end in CR LF; nothing is quoted.
struct CsvExport
{
    QStringList classes;    ///< checked names, in the order of the dialog
    QVector<int> intervals; ///< lengths of the events with a column of their own, min; ascending, of 1, 5, 10
    ClassEvents::Mode mode = ClassEvents::Mode::Dynamic;
    TimeZoneChoice time;
    ClassChoice::Unassigned unassigned = ClassChoice::Unassigned::AsOne;

    /// Has lines for those of `rows` that are chosen, in their order.
    QString text(const QVector<RecordingRow>& rows) const;

    /// "dynamic" or "static".
    static QString modeText(ClassEvents::Mode mode);

private:
    QString header() const;
};

#endif
