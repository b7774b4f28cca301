#ifndef SONAVIA_DSP_SIGNALTYPES_H
#define SONAVIA_DSP_SIGNALTYPES_H

/// Registers the value types that travel in queued signals between the workers and the window: regions,
/// calls, matrices and sample vectors. To be called before the first of these signals is emitted (a signal
/// that was emitted once without it stays dead); calling it again does nothing.
void registerSignalTypes();

#endif
