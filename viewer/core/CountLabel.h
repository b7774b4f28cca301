#ifndef SONAVIA_VIEWER_CORE_COUNTLABEL_H
#define SONAVIA_VIEWER_CORE_COUNTLABEL_H

#include <QString>

/// What stands under a file list. All texts begin with a line break, which keeps them on the lower of the two
/// lines that the longer one needs.
namespace CountLabel {

/// "1 item", "7 items".
QString total(int rows);

/// "2 of 7 items selected", on two lines; total() where nothing is selected. Singular or plural goes by the
/// number of rows, so one selected row of two reads "1 of 2 items selected".
QString selection(int selected, int rows);

} // namespace CountLabel

#endif
