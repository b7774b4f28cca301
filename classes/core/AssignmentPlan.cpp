#include "classes/core/AssignmentPlan.h"

#include "base/UserPrompts.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

using Answer = UserPrompts::Answer;

QString noCall()
{
    return QStringLiteral("No call");
}

bool proceeds(const QString& text, UserPrompts& prompts)
{
    return prompts.ask({UserPrompts::Icon::Warning,
                        QStringLiteral("Warning"),
                        text,
                        {},
                        {Answer::Ok, Answer::Cancel},
                        Answer::Cancel}) == Answer::Ok;
}

} // namespace

AssignmentPlan::AssignmentPlan(QString className, QVector<ClassRecord> selected, bool asksAboutNoCall)
    : m_className(std::move(className)), m_selected(std::move(selected)), m_asksAboutNoCall(asksAboutNoCall)
{}

QVector<int> AssignmentPlan::settle(UserPrompts& prompts) const
{
    QVector<int> files(m_selected.size());
    std::iota(files.begin(), files.end(), 0);
    const bool goesOn =
        settleFullFiles(files, prompts) && (!m_asksAboutNoCall || confirmsNoCall(files, prompts));
    return goesOn ? files : QVector<int>();
}

QStringList AssignmentPlan::carriedByNone(const QStringList& names, const QVector<ClassRecord>& records)
{
    QStringList free;
    std::copy_if(names.cbegin(), names.cend(), std::back_inserter(free), [&records](const QString& name) {
        return std::none_of(records.cbegin(), records.cend(),
                            [&name](const ClassRecord& record) { return record.contains(name); });
    });
    return free;
}

bool AssignmentPlan::anyHasSlot(int slot, const QVector<ClassRecord>& records)
{
    return std::any_of(records.cbegin(), records.cend(), [slot](const ClassRecord& record) {
        return !record.classes[static_cast<std::size_t>(slot)].isEmpty();
    });
}

/// An assignment would overwrite class 4.
bool AssignmentPlan::isFull(const ClassRecord& record) const
{
    const auto& classes = record.classes;
    return std::none_of(classes.cbegin(), classes.cend(),
                        [](const QString& name) { return name.isEmpty(); }) &&
           !record.contains(m_className);
}

bool AssignmentPlan::settleFullFiles(QVector<int>& files, UserPrompts& prompts) const
{
    const auto full = [this](int file) { return isFull(m_selected.at(file)); };
    if (std::none_of(files.cbegin(), files.cend(), full))
        return true;
    const bool several = files.size() > 1;
    const Answer answer =
        prompts.ask({UserPrompts::Icon::Warning,
                     QStringLiteral("Warning"),
                     several ? QStringLiteral("All classes of one or more files are already assigned.\n"
                                              "Do you want to overwrite class 4 in such files?")
                             : QStringLiteral("All classes of the file are already assigned.\n"
                                              "Do you want to overwrite class 4?"),
                     {},
                     {Answer::Yes, Answer::No, Answer::Cancel},
                     Answer::No});
    if (several && answer == Answer::No)
        files.erase(std::remove_if(files.begin(), files.end(), full), files.end());
    return answer == Answer::Yes || (several && answer == Answer::No);
}

bool AssignmentPlan::confirmsNoCall(const QVector<int>& files, UserPrompts& prompts) const
{
    const bool assignsNoCall = m_className == noCall();
    const bool overwrites = std::any_of(files.cbegin(), files.cend(), [&](int file) {
        const QString& present = m_selected.at(file).classes[0];
        return assignsNoCall ? !present.isEmpty() && present != noCall() : present == noCall();
    });
    if (!overwrites)
        return true;
    const QString subject = files.size() > 1 ? QStringLiteral("One or more files") : QStringLiteral("File");
    return proceeds(subject + (assignsNoCall
                                   ? QStringLiteral(" already assigned to a bat call class.\n"
                                                    "This assignment will be overwritten.")
                                   : QStringLiteral(" already assigned to 'No Call'.\n"
                                                    "This 'No Call' assignment will be overwritten.")),
                    prompts);
}
