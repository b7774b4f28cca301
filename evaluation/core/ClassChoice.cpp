#include "evaluation/core/ClassChoice.h"

#include "classes/core/ClassTree.h"

#include <algorithm>

namespace ClassChoice {

QString detectedNoCall()
{
    return QStringLiteral("Detected No Call");
}

bool isDetectedNoCall(const ClassRecord& record, Unassigned unassigned)
{
    return unassigned == Unassigned::ByDetection && record.isUnassigned() && record.proposesNoCall();
}

namespace {

/// Calls visit(name) for the names that a recording counts for, each once.
template <typename Visit>
void visitNames(const ClassRecord& record, Unassigned unassigned, Visit visit)
{
    if (record.isUnassigned())
        visit(isDetectedNoCall(record, unassigned) ? detectedNoCall() : ClassTree::unassigned());
    const auto& classes = record.classes;
    for (auto name = classes.cbegin(); name != classes.cend(); ++name)
        if (!name->isEmpty() && std::find(classes.cbegin(), name, *name) == name)
            visit(*name);
}

} // namespace

QStringList namesOf(const ClassRecord& record, Unassigned unassigned)
{
    QStringList names;
    visitNames(record, unassigned, [&names](const QString& name) { names.append(name); });
    return names;
}

void Tally::add(const ClassRecord& record)
{
    visitNames(record, m_unassigned, [this](const QString& name) {
        auto index = m_indexOf.constFind(name);
        if (index == m_indexOf.constEnd()) {
            index = m_indexOf.insert(name, m_found.size());
            m_found.append({name, 0});
        }
        ++m_found[*index].count;
    });
}

QString Tally::text() const
{
    QString text;
    for (const Line& line : m_found)
        text += line.name + QLatin1Char('\t') + QString::number(line.count) + QLatin1Char('\n');
    return text;
}

QVector<Line> lines(const QString& text)
{
    QVector<Line> lines;
    const QVector<QStringRef> parts = text.splitRef(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QStringRef part : parts) {
        const bool marked = part.startsWith(QLatin1Char('\t'));
        if (marked)
            part = part.mid(1);
        const int tab = part.lastIndexOf(QLatin1Char('\t'));
        lines.append({part.left(tab).toString(), part.mid(tab + 1).toInt(), marked && !lines.isEmpty()});
    }
    return lines;
}

bool isChosen(const ClassRecord& record, const QSet<QString>& chosen)
{
    if (record.isUnassigned() && chosen.contains(ClassTree::unassigned()))
        return true;
    return std::any_of(record.classes.cbegin(), record.classes.cend(),
                       [&chosen](const QString& name) { return !name.isEmpty() && chosen.contains(name); });
}

} // namespace ClassChoice
