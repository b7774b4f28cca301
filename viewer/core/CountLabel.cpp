#include "viewer/core/CountLabel.h"

QString CountLabel::total(int rows)
{
    return QStringLiteral("\n%1 %2").arg(rows).arg(rows == 1 ? QStringLiteral("item")
                                                             : QStringLiteral("items"));
}

QString CountLabel::selection(int selected, int rows)
{
    if (selected == 0)
        return total(rows);
    return QStringLiteral("\n%1 of %2\n%3 selected")
        .arg(selected)
        .arg(rows)
        .arg(rows == 1 ? QStringLiteral("item") : QStringLiteral("items"));
}
