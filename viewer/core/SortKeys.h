#ifndef SONAVIA_VIEWER_CORE_SORTKEYS_H
#define SONAVIA_VIEWER_CORE_SORTKEYS_H

#include <QLocale>
#include <QString>

/// Numbers that order the rows of a file list. Parsed by hand where Qt's date parser would take most of the
/// time of opening a large folder.
namespace SortKeys {

/// Seconds on one time line from "dd/MM/yy" and "hh:mm:ss". Years of two digits lie in one century, whichever
/// they come from. A text in another form is earlier than all others.
double instant(const QString& date, const QString& time);

/// Seconds since midnight from "hh:mm:ss"; a text in another form is earlier than all others.
double timeOfDay(const QString& time);

/// A number as `locale` writes it; 0 where it is none.
double number(const QString& text, const QLocale& locale = QLocale());

} // namespace SortKeys

#endif
