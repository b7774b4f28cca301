#ifndef SONAVIA_VIEWER_AUDIOOUTPUTNAME_H
#define SONAVIA_VIEWER_AUDIOOUTPUTNAME_H

#include <QString>

/// Whether the system has a device to play sound on. Asked anew at each call. GUI thread.
bool hasOutputDevice();

/// The name of the device that sound is played on, the system's default output, or a text saying that there
/// is none. Asked anew at each call: devices come and go. GUI thread.
QString outputDeviceName();

#endif
