#include "classes/core/ClassCounts.h"

#include <algorithm>

void ClassCounts::clear()
{
    m_counts.clear();
    m_unassigned = 0;
}

void ClassCounts::change(const ClassRecord& before, const ClassRecord& after)
{
    shift(before, -1);
    shift(after, 1);
}

void ClassCounts::shift(const ClassRecord& record, int by)
{
    if (record.isUnassigned())
        m_unassigned += by;
    for (auto slot = record.classes.cbegin(); slot != record.classes.cend(); ++slot) {
        const bool counted = std::find(record.classes.cbegin(), slot, *slot) != slot;
        if (!slot->isEmpty() && !counted)
            m_counts[*slot] += by;
    }
}
