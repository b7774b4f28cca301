#ifndef SONAVIA_APP_QUEUEDTYPES_H
#define SONAVIA_APP_QUEUEDTYPES_H

/// Registers every type that crosses threads in queued signals. To be called before the event loop runs: one
/// signal emitted earlier would break its connection for good. May be called again.
void registerQueuedTypes();

#endif
