#include "recordings/ClassRecord.h"

#include <QSet>

#include <algorithm>

namespace {

const QLatin1Char fieldSeparator('|');

QString classSeparator()
{
    return QStringLiteral(" + ");
}

QString proposalSeparator()
{
    return QStringLiteral(", ");
}

std::array<QString, ClassRecord::slotCount> parseClasses(const QString& part)
{
    std::array<QString, ClassRecord::slotCount> classes;
    const QStringList names = part.split(classSeparator());
    if (names.size() <= ClassRecord::slotCount)
        std::copy(names.cbegin(), names.cend(), classes.begin());
    return classes;
}

QString joined(const std::array<QString, ClassRecord::slotCount>& classes, int count)
{
    QString text;
    for (int slot = 0; slot < count; ++slot) {
        if (slot > 0)
            text += classSeparator();
        text += classes[static_cast<std::size_t>(slot)];
    }
    return text;
}

/// Slots up to the last filled one.
int usedSlots(const std::array<QString, ClassRecord::slotCount>& classes)
{
    int count = ClassRecord::slotCount;
    while (count > 0 && classes[static_cast<std::size_t>(count - 1)].isEmpty())
        --count;
    return count;
}

bool isPrintableAscii(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c >= u' ' && c <= u'~'; });
}

} // namespace

ClassRecord ClassRecord::parse(const QString& description)
{
    ClassRecord record;
    const int classesEnd = description.indexOf(fieldSeparator);
    record.classes = parseClasses(description.left(classesEnd));
    if (classesEnd < 0)
        return record;
    if (description.count(fieldSeparator) == 3) {
        const int autoClassEnd = description.indexOf(fieldSeparator, classesEnd + 1);
        const int acceptedEnd = description.indexOf(fieldSeparator, autoClassEnd + 1);
        record.autoClass = description.mid(classesEnd + 1, autoClassEnd - classesEnd - 1);
        record.accepted = description.mid(autoClassEnd + 1, acceptedEnd - autoClassEnd - 1);
        record.comment = description.mid(acceptedEnd + 1);
    } else
        record.comment = description.mid(classesEnd + 1); // also how older records were laid out
    return record;
}

QString ClassRecord::fullForm() const
{
    return joined(classes, usedSlots(classes)) + fieldSeparator + autoClass + fieldSeparator + accepted +
           fieldSeparator + comment;
}

QString ClassRecord::shortForm() const
{
    return joined(classes, usedSlots(classes)) + fieldSeparator + comment;
}

QString ClassRecord::allSlotsForm() const
{
    return joined(classes, slotCount) + fieldSeparator + autoClass + fieldSeparator + accepted +
           fieldSeparator + comment;
}

QStringList ClassRecord::proposedClasses() const
{
    return autoClass.split(proposalSeparator(), Qt::SkipEmptyParts).mid(0, slotCount);
}

bool ClassRecord::proposesNoCall() const
{
    return autoClass == QLatin1String("No Call") || autoClass == QLatin1String("No call");
}

bool ClassRecord::contains(const QString& className) const
{
    return !className.isEmpty() && std::find(classes.cbegin(), classes.cend(), className) != classes.cend();
}

QString ClassRecord::recomputedAccepted() const
{
    const QStringList proposed = proposedClasses();
    QSet<QString> assigned(classes.cbegin(), classes.cend());
    assigned.remove(QString());
    const bool same = !assigned.isEmpty() && assigned == QSet<QString>(proposed.cbegin(), proposed.cend());
    return same ? QStringLiteral("1") : QStringLiteral("0");
}

bool ClassRecord::acceptsClassName(const QString& name)
{
    return !name.isEmpty() && acceptsComment(name) && !name.contains(classSeparator()) &&
           !name.contains(proposalSeparator()) && !name.endsWith(QLatin1String(" +"));
}

bool ClassRecord::acceptsComment(const QString& comment)
{
    return isPrintableAscii(comment) && !comment.contains(fieldSeparator);
}
