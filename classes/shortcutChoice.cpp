#include "classes/shortcutChoice.h"

#include <QComboBox>

void offerShortcuts(QComboBox& box, const QStringList& freeShortcuts)
{
    for (const QString& shortcut : freeShortcuts)
        box.addItem(shortcut, shortcut);
    box.addItem(QStringLiteral("none"), QString());
}

QString chosenShortcut(const QComboBox& box)
{
    return box.currentData().toString();
}
