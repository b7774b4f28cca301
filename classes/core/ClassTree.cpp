#include "classes/core/ClassTree.h"

#include "recordings/ClassRecord.h"

#include <algorithm>

namespace {

const QLatin1Char tab('\t');

bool isShortcut(const QString& text)
{
    return text.size() == 3 && text == ClassTree::shortcutOf(text.at(1));
}

ClassTree::Entry entryOf(QString line)
{
    ClassTree::Entry entry;
    if (line.endsWith(QLatin1Char('\r')))
        line.chop(1);
    entry.isSubclass = line.startsWith(tab);
    const QStringList fields = line.mid(entry.isSubclass ? 1 : 0).split(tab);
    entry.name = fields.at(0);
    if (isShortcut(fields.value(1)))
        entry.shortcut = fields.at(1);
    return entry;
}

const char pipAndNyc[] = "Pip\t<A>\n\tPnat\t<Q>\n\tPpPn\t<W>\n\tPpip\t<E>\n\tPpPp\t<R>\n\tPpyg\t<T>\n"
                         "Nyc\t<S>\n\tNlow\t<Y>\n\tNnoc\t<X>\n\tNycmi\t<C>\n\tEnil\t<V>\n";

} // namespace

ClassTree ClassTree::fromText(const QString& text, QStringList* leftOut)
{
    ClassTree tree;
    bool classLeftOut = false;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const Entry entry = entryOf(line);
        if (entry.name.isEmpty() || (entry.isSubclass && tree.isEmpty() && !classLeftOut))
            continue;
        const bool leaveOut =
            tree.problemOf(entry.name) != NameProblem::None || (entry.isSubclass && classLeftOut);
        if (!entry.isSubclass)
            classLeftOut = leaveOut;
        if (!leaveOut)
            tree.append(entry);
        else if (leftOut)
            leftOut->append(entry.name);
    }
    return tree;
}

QString ClassTree::text() const
{
    QString text;
    for (const Entry& entry : m_entries) {
        if (entry.isSubclass)
            text += tab;
        text += entry.name + tab + entry.shortcut + QLatin1Char('\n');
    }
    return text;
}

ClassTree ClassTree::advancedDefault()
{
    return fromText(QLatin1String(pipAndNyc) + QStringLiteral("Test\t<D>\nNoise\t<F>\n"));
}

ClassTree ClassTree::simpleDefault()
{
    return fromText(QStringLiteral("Bat\t<A>\nNo call\t<D>\n"));
}

ClassTree ClassTree::advancedReview()
{
    return fromText(QLatin1String(pipAndNyc) + QStringLiteral("No Call\t<D>\n"));
}

ClassTree ClassTree::simpleReview()
{
    return fromText(QStringLiteral("Pip\t<G>\n\tPnat\t<H>\nNyc\t<F>\nNo Call\t<J>\n"));
}

ClassTree ClassTree::reviewAfterReset() const
{
    return contains(QStringLiteral("PpPn")) ? advancedReview() : simpleReview();
}

bool ClassTree::append(const Entry& entry)
{
    if (problemOf(entry.name) != NameProblem::None || (entry.isSubclass && m_entries.isEmpty()))
        return false;
    m_entries.append(entry);
    return true;
}

QStringList ClassTree::names() const
{
    QStringList names;
    names.reserve(m_entries.size());
    for (const Entry& entry : m_entries)
        names.append(entry.name);
    return names;
}

bool ClassTree::contains(const QString& name) const
{
    return std::any_of(m_entries.cbegin(), m_entries.cend(),
                       [&name](const Entry& entry) { return entry.name == name; });
}

ClassTree::NameProblem ClassTree::problemOf(const QString& newName) const
{
    if (newName.isEmpty())
        return NameProblem::Empty;
    if (!ClassRecord::acceptsClassName(newName))
        return NameProblem::Refused;
    return contains(newName) || newName == unassigned() ? NameProblem::Exists : NameProblem::None;
}

QStringList ClassTree::freeShortcuts() const
{
    QStringList shortcuts;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        if (nameOfShortcut(shortcutOf(letter)).isEmpty())
            shortcuts.append(shortcutOf(letter));
    return shortcuts;
}

QString ClassTree::nameOfShortcut(const QString& shortcut) const
{
    const auto entry =
        std::find_if(m_entries.cbegin(), m_entries.cend(), [&shortcut](const Entry& candidate) {
            return candidate.shortcut == shortcut && !shortcut.isEmpty();
        });
    return entry == m_entries.cend() ? QString() : entry->name;
}

QString ClassTree::shortcutOf(QChar letter)
{
    const QChar upper = letter.toUpper();
    return upper >= u'A' && upper <= u'Z' ? QLatin1Char('<') + QString(upper) + QLatin1Char('>') : QString();
}

QString ClassTree::unassigned()
{
    return QStringLiteral("Unassigned");
}
