#ifndef SONAVIA_TESTS_SUPPORT_DETECTIONRESULT_H
#define SONAVIA_TESTS_SUPPORT_DETECTIONRESULT_H

#include "dsp/AmplitudeImage.h"
#include "dsp/Blob.h"
#include "dsp/MyBatCall.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <unordered_map>

/// What a detection gives.
struct DetectionResult
{
    std::unordered_map<int, Blob> blobs;
    QStringList classes;
    QList<MyBatCall> calls;
};

bool sameBlob(const Blob& a, const Blob& b);

/// The first thing in which two results differ, in words; empty where they are equal to the bit.
QString difference(const DetectionResult& a, const DetectionResult& b);

/// A number that almost surely differs between images that differ in one bit.
quint64 digest(const AmplitudeImage& image);

#endif
