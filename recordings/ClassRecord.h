#ifndef SONAVIA_RECORDINGS_CLASSRECORD_H
#define SONAVIA_RECORDINGS_CLASSRECORD_H

#include <QString>
#include <QStringList>

#include <array>

/// The classification of one recording: the line of text that stands in the Description field of its file.
///
///     Pip + Ppyg|Pip, Nyc|0|two calls        full form: classes | proposal | accepted | comment
///     Pip + Ppyg|two calls                   short form, where there is no proposal
///
/// A plain value. parse() takes any text and never fails; a "|" in the comment that some other program wrote
/// can lead to a full form that reads back differently, see readsBack().
struct ClassRecord
{
    static constexpr int slotCount = 4;

    /// The classes assigned by hand, the main one first. A slot before a filled one may be empty.
    std::array<QString, slotCount> classes;
    QString autoClass; ///< the proposal, several classes joined by ", "; "No Call" and "No call" occur
    QString accepted;  ///< "1", "0" or empty
    QString comment;

    /// From a Description. More than four classes read as none; only with exactly three "|" is there a
    /// proposal, with fewer or more everything behind the first "|" is the comment.
    static ClassRecord parse(const QString& description);

    /// "classes|autoClass|accepted|comment". Empty slots behind the last class are left out.
    QString fullForm() const;
    /// "classes|comment".
    QString shortForm() const;
    /// The form that the record calls for: the full one when there is a proposal or an accepted flag.
    QString text() const { return hasProposal() ? fullForm() : shortForm(); }
    /// The full form with all four slots, as header reading writes it: "Pip +  +  + |No Call|0|".
    QString allSlotsForm() const;

    bool hasProposal() const { return !autoClass.isEmpty() || !accepted.isEmpty(); }
    /// The first four proposed classes; empty without a proposal.
    QStringList proposedClasses() const;
    /// Whether the proposal says that there is no bat in the recording, in either spelling.
    bool proposesNoCall() const;

    /// The main class is empty, whatever the other slots hold.
    bool isUnassigned() const { return classes[0].isEmpty(); }
    /// Whether a slot holds `className`, which is not empty.
    bool contains(const QString& className) const;
    /// "1" when the proposed classes are exactly the assigned ones, in any order, else "0".
    QString recomputedAccepted() const;

    /// Whether `text`, read again, gives this record.
    bool readsBack(const QString& text) const { return parse(text) == *this; }

    // What may be typed, so that a record reads back as it was written.

    /// Printable ASCII, not empty, without "|", " + " and ", ", and not ending in " +".
    static bool acceptsClassName(const QString& name);
    /// Printable ASCII without "|"; may be empty. Whether it fits is another question, see
    /// bextDescriptionSize.
    static bool acceptsComment(const QString& comment);

    friend bool operator==(const ClassRecord& a, const ClassRecord& b)
    {
        return a.classes == b.classes && a.autoClass == b.autoClass && a.accepted == b.accepted &&
               a.comment == b.comment;
    }
    friend bool operator!=(const ClassRecord& a, const ClassRecord& b) { return !(a == b); }
};

#endif
