#ifndef SONAVIA_CLASSES_CORE_CLASSCOUNTS_H
#define SONAVIA_CLASSES_CORE_CLASSCOUNTS_H

#include "recordings/ClassRecord.h"

#include <QHash>

/// How many listed files carry each class, kept up to date by ones as rows come, change and go. A file counts
/// once for a class, whatever the slot, and for "Unassigned" when its main class is empty. Classes that are
/// in no class tree are counted too, so that one that is added later has its count at once. A plain value.
class ClassCounts
{
public:
    void clear();

    void add(const ClassRecord& record) { shift(record, 1); }
    void remove(const ClassRecord& record) { shift(record, -1); }
    void change(const ClassRecord& before, const ClassRecord& after);

    int of(const QString& className) const { return m_counts.value(className, 0); }
    int unassigned() const { return m_unassigned; }

private:
    void shift(const ClassRecord& record, int by);

    QHash<QString, int> m_counts;
    int m_unassigned = 0;
};

#endif
