#ifndef SONAVIA_CLASSES_CORE_CLASSTREE_H
#define SONAVIA_CLASSES_CORE_CLASSTREE_H

#include <QString>
#include <QStringList>
#include <QVector>

/// The classes that recordings are sorted into: classes, each with at most one level of subclasses, in the
/// order in which they are shown. A plain value.
///
/// As text, in model files and between dialogs, it is one line per class, ended by LF; a subclass follows its
/// class and starts with a TAB:
///
///     Pip TAB <A>
///     TAB Pnat TAB <Q>
///
/// Names are unique in the whole tree, compared exactly. A shortcut is "<A>" to "<Z>" or empty; a tree made
/// from text may give one twice, and then its first class has it.
class ClassTree
{
public:
    struct Entry
    {
        QString name;
        QString shortcut;
        bool isSubclass = false; ///< of the nearest entry before it that is none
    };

    /// What stands in the way of a new name.
    enum class NameProblem {
        None,
        Empty,
        Refused, ///< ClassRecord::acceptsClassName() says no: it would break the record of a file
        Exists   ///< in this tree, or the name of the row for files without a class
    };

    /// A carriage return at a line's end is dropped, a line without second field has no shortcut. Left out,
    /// and put into `leftOut` by their names: classes whose name has a NameProblem, with their subclasses. A
    /// subclass before any class is ignored.
    static ClassTree fromText(const QString& text, QStringList* leftOut = nullptr);
    QString text() const;

    // The trees that come with the program.
    static ClassTree advancedDefault();
    static ClassTree simpleDefault();
    /// For the review of a recorder's results.
    static ClassTree advancedReview();
    static ClassTree simpleReview();
    /// The review tree that replaces this one when all files have been reset.
    ClassTree reviewAfterReset() const;

    /// Adds behind the last entry. False, and nothing happens, for a name with a problem and for a subclass
    /// without a class.
    bool append(const Entry& entry);

    const QVector<Entry>& entries() const { return m_entries; }
    bool isEmpty() const { return m_entries.isEmpty(); }
    QStringList names() const;
    bool contains(const QString& name) const;
    NameProblem problemOf(const QString& newName) const;

    /// The shortcuts that no class has, from "<A>" on.
    QStringList freeShortcuts() const;
    /// Empty when no class has it.
    QString nameOfShortcut(const QString& shortcut) const;
    /// "<A>" to "<Z>" for a letter in either case, else empty.
    static QString shortcutOf(QChar letter);

    /// The row for files without a class, which stands beside the tree and is never part of it.
    static QString unassigned();

private:
    QVector<Entry> m_entries;
};

#endif
