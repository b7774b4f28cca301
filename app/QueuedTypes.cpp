#include "app/QueuedTypes.h"

#include "dsp/SignalTypes.h"

#include <QList>
#include <QMetaType>
#include <QTreeWidgetItem>

void registerQueuedTypes()
{
    registerSignalTypes();
    qRegisterMetaType<QTreeWidgetItem*>("QTreeWidgetItem*");
    qRegisterMetaType<QList<QTreeWidgetItem*>>("QList<QTreeWidgetItem*>");
}
