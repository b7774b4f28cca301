#ifndef SONAVIA_DSP_CLASSPROPOSAL_H
#define SONAVIA_DSP_CLASSPROPOSAL_H

#include <QString>
#include <QStringList>

struct CallFeatures;

// The rule table for two genera, "Nyc" and "Pip", and the species groups within them. No state; any thread.

/// [genus, subgroup] of a call: genus "Nyc", "Pip", "Noise" or "Test" (a long constant tone); subgroup "No
/// Sub" where none fits. Duration in s, frequencies in kHz.
QStringList classify(double duration, double startFreq, double endFreq);

/// Whether a region with this proposal is noise all the same: `lowPitched` tells that it reaches below 8 kHz;
/// the jumps of its centroid may speak against a call or, for a tone, for one.
bool isNoise(const QStringList& proposal, const CallFeatures& features, bool lowPitched);

/// The text that stands for a proposal: its subgroup, or the genus where that is "No Sub".
QString classText(const QStringList& proposal);

/// The proposal for a whole recording from the class texts of its regions: "No call", empty, or up to two of
/// the groups' results joined by ", ".
QString proposeFileClass(const QStringList& classes);

#endif
