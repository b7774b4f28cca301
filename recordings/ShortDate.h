#ifndef SONAVIA_RECORDINGS_SHORTDATE_H
#define SONAVIA_RECORDINGS_SHORTDATE_H

#include <QString>

// The date text of a recording, "dd/MM/yy", from the forms in which recorders store dates. Years of two
// digits are taken as 20yy. A text in another form, or of a day that does not exist, gives an empty text, so
// that the next source of a date can be tried.

/// From "MM/dd/yy".
QString shortDateFromMonthFirst(const QString& text);

/// From "yyyy-MM-dd".
QString shortDateFromIso(const QString& text);

#endif
