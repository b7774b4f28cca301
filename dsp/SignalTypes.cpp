#include "dsp/SignalTypes.h"

#include "dsp/Blob.h"
#include "dsp/MyBatCall.h"

#include <QList>
#include <QMetaType>
#include <QVector>

#include <unordered_map>
#include <vector>

void registerSignalTypes()
{
    qRegisterMetaType<std::unordered_map<int, Blob>>("std::unordered_map<int, Blob>");
    qRegisterMetaType<QVector<double>>("QVector<double>");
    qRegisterMetaType<QVector<int>>("QVector<int>");
    qRegisterMetaType<QList<MyBatCall>>("QList<MyBatCall>");
    qRegisterMetaType<std::vector<int>*>("std::vector<int>*");
}
