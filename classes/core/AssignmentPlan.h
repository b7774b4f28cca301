#ifndef SONAVIA_CLASSES_CORE_ASSIGNMENTPLAN_H
#define SONAVIA_CLASSES_CORE_ASSIGNMENTPLAN_H

#include "recordings/ClassRecord.h"

#include <QVector>

class UserPrompts;

/// What an assignment by button or menu asks before it starts, and which of the selected files it then takes.
/// (By a letter key nothing is asked, and all files are taken.) A plain value.
///
/// The questions know the class "No call", as the simple class model spells it; "No Call" of the automatic
/// classes is a class like any other here.
class AssignmentPlan
{
public:
    /// `selected` holds the records of the selected files. `asksAboutNoCall` is false where the class tree is
    /// a fixed one (view modes 3 and 4).
    AssignmentPlan(QString className, QVector<ClassRecord> selected, bool asksAboutNoCall);

    /// Asks what has to be asked. Indexes into `selected`, ascending, of the files to be assigned; none when
    /// the user called it off.
    QVector<int> settle(UserPrompts& prompts) const;

    /// Those of `names` that none of the records carries.
    static QStringList carriedByNone(const QStringList& names, const QVector<ClassRecord>& records);
    /// Some record has a class in `slot`, which counts from 0.
    static bool anyHasSlot(int slot, const QVector<ClassRecord>& records);

private:
    bool isFull(const ClassRecord& record) const;
    bool settleFullFiles(QVector<int>& files, UserPrompts& prompts) const;
    bool confirmsNoCall(const QVector<int>& files, UserPrompts& prompts) const;

    QString m_className;
    QVector<ClassRecord> m_selected;
    bool m_asksAboutNoCall;
};

#endif
