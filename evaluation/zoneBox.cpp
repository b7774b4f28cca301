#include "evaluation/zoneBox.h"

#include "evaluation/core/TimeZoneChoice.h"

#include <QComboBox>

void fillZoneBox(QComboBox& box)
{
    QStringList names;
    for (const TimeZoneChoice::Entry& entry : TimeZoneChoice::entries())
        names.append(entry.name);
    box.clear();
    box.addItems(names);
    box.setCurrentIndex(TimeZoneChoice::indexOf(QTimeZone::systemTimeZone()));
}

QTimeZone selectedZone(const QComboBox& box)
{
    return TimeZoneChoice::entries().value(box.currentIndex()).zone;
}
