#ifndef SONAVIA_TESTS_EVALUATION_EXAMPLEROW_H
#define SONAVIA_TESTS_EVALUATION_EXAMPLEROW_H

#include "recordings/RecordingRow.h"

/// A row from the texts that the tests of exports care about; `record` as in a file.
inline RecordingRow exampleRow(const QString& name, const QString& date, const QString& time,
                               const QString& record)
{
    RecordingRow row;
    row.name = name;
    row.date = date;
    row.time = time;
    row.length = QStringLiteral("3.000");
    row.record = ClassRecord::parse(record);
    return row;
}

#endif
