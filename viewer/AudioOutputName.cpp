#include "viewer/AudioOutputName.h"

#include <QAudioDeviceInfo>
#include <QCoreApplication>

bool hasOutputDevice()
{
    // Where there is no device, some systems still list one without a name.
    const QAudioDeviceInfo device = QAudioDeviceInfo::defaultOutputDevice();
    return !device.isNull() && !device.deviceName().isEmpty();
}

QString outputDeviceName()
{
    return hasOutputDevice() ? QAudioDeviceInfo::defaultOutputDevice().deviceName()
                             : QCoreApplication::translate("AudioOutputName", "No audio output device");
}
