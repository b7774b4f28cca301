#ifndef SONAVIA_EVALUATION_CORE_CLASSCHOICE_H
#define SONAVIA_EVALUATION_CORE_CLASSCHOICE_H

#include "recordings/RecordingRow.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QVector>

/// Which classes the listed recordings carry and which of them the user wants: what all dialogs with a list
/// of classes to be checked have in common.
///
/// Beside the names of classes there are two that stand for recordings without one: ClassTree::unassigned(),
/// and detectedNoCall() where the lists show proposals (view modes 3 and 4).
namespace ClassChoice {

/// How recordings without a main class are looked at.
enum class Unassigned {
    AsOne,      ///< all are "Unassigned"
    ByDetection ///< those in which no call was detected are "Detected No Call" instead
};

/// One class of a list to choose from.
struct Line
{
    QString name;
    int count = 0;           ///< recordings that carry the class
    bool isSubclass = false; ///< of the nearest line before it that is none
};

QString detectedNoCall();
bool isDetectedNoCall(const ClassRecord& record, Unassigned unassigned);

/// The names that a recording counts for, each once.
QStringList namesOf(const ClassRecord& record, Unassigned unassigned = Unassigned::AsOne);

/// Counts recordings, for the text from which a dialog builds its list: a line "name TAB count LF" for each
/// name that occurs, in order of first appearance.
class Tally
{
public:
    explicit Tally(Unassigned unassigned) : m_unassigned(unassigned) {}

    void add(const ClassRecord& record);
    QString text() const;

private:
    Unassigned m_unassigned;
    QHash<QString, int> m_indexOf;
    QVector<Line> m_found;
};

/// The lines of such a text. A TAB before the name marks a subclass; without a class before it, it is one
/// itself.
QVector<Line> lines(const QString& text);

/// Whether a recording has one of the `chosen` names in any slot, or no main class when "Unassigned" is
/// chosen.
bool isChosen(const ClassRecord& record, const QSet<QString>& chosen);

} // namespace ClassChoice

#endif
