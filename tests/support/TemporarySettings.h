#ifndef SONAVIA_TESTS_SUPPORT_TEMPORARYSETTINGS_H
#define SONAVIA_TESTS_SUPPORT_TEMPORARYSETTINGS_H

#include <QTemporaryDir>

/// Gives the process an empty settings store in a folder of its own, for as long as it lives. Make one before
/// anything reads a setting; it also sets the organization and application name that select the store.
class TemporarySettings
{
public:
    TemporarySettings();

    /// Forgets everything stored, as at a first start.
    void clear();

private:
    QTemporaryDir m_folder;
};

#endif
