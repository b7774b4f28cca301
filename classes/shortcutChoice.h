#ifndef SONAVIA_CLASSES_SHORTCUTCHOICE_H
#define SONAVIA_CLASSES_SHORTCUTCHOICE_H

#include <QStringList>

class QComboBox;

/// Lets the user choose one of the free shortcuts, or none (the last entry). The first one is preselected.
void offerShortcuts(QComboBox& box, const QStringList& freeShortcuts);

/// "<A>" to "<Z>", or empty for none.
QString chosenShortcut(const QComboBox& box);

#endif
