#ifndef SONAVIA_EVALUATION_ZONEBOX_H
#define SONAVIA_EVALUATION_ZONEBOX_H

#include <QTimeZone>

class QComboBox;

/// Fills `box` with the zones of TimeZoneChoice::entries() and selects the computer's own.
void fillZoneBox(QComboBox& box);

/// The zone selected in a box filled so; invalid when there are none.
QTimeZone selectedZone(const QComboBox& box);

#endif
