#include "recordings/GetFileInfoThread.h"

#include "base/UserPrompts.h"
#include "dsp/ClassProposal.h"
#include "dsp/FileClassification.h"
#include "recordings/FileInfoText.h"
#include "recordings/RecordingsLog.h"
#include "recordings/ShortDate.h"
#include "recordings/writeBextDescription.h"

namespace {

QString unknown()
{
    return QStringLiteral("N/A");
}

QString orUnknown(const QString& text)
{
    return text.isEmpty() ? unknown() : text;
}

// The classes of the modes that have a fixed tree.

const QStringList& categorizationVocabulary()
{
    static const QStringList classes = {
        QStringLiteral("PipPyg"), QStringLiteral("PipPp"),  QStringLiteral("PipPip"),
        QStringLiteral("PipPn"),  QStringLiteral("PipNat"), QStringLiteral("Pip"),
        QStringLiteral("Enil"),   QStringLiteral("NycMid"), QStringLiteral("NycNoc"),
        QStringLiteral("NycLow"), QStringLiteral("Nyc"),    QStringLiteral("No Call")};
    return classes;
}

const QStringList& reviewVocabulary(RecorderResult::Mode mode)
{
    static const QStringList species = {
        QStringLiteral("Ppyg"), QStringLiteral("PpPp"), QStringLiteral("Ppip"), QStringLiteral("PpPn"),
        QStringLiteral("Pnat"), QStringLiteral("Pip"),  QStringLiteral("Enil"), QStringLiteral("Nycmi"),
        QStringLiteral("Nnoc"), QStringLiteral("Nlow"), QStringLiteral("Nyc"),  QStringLiteral("No Call")};
    static const QStringList groups = {QStringLiteral("Pnat"), QStringLiteral("Pip"), QStringLiteral("Nyc"),
                                       QStringLiteral("No Call")};
    return mode == RecorderResult::Mode::Species ? species : groups;
}

/// Clears what does not belong into the mode's tree, leaving gaps. Whether anything was cleared.
bool clearForeignClasses(ClassRecord& record, const QStringList& vocabulary)
{
    const ClassRecord before = record;
    for (QString& name : record.classes)
        if (!vocabulary.contains(name))
            name.clear();
    if (record.proposesNoCall())
        record.classes = {};
    return record != before;
}

void writeBack(const QString& path, const ClassRecord& record)
{
    const QString text = record.allSlotsForm();
    if (record.readsBack(text) && text.toUtf8().size() <= bextDescriptionSize)
        writeBextDescription(path, text);
    else // a comment with "|" in it: next time the proposal would be read as a part of it; or one too long
        qCDebug(lcRecordings, "The record cannot be written so that it reads back");
}

} // namespace

void GetFileInfoThread::getFileHeaderInfo(int index, const QString& wavFileName, bool calcClasses,
                                          const QString& recorderResultFileName, int reviewMode)
{
    if (m_stop)
        return;
    RecordingRow row = readHeader(wavFileName);
    if (m_file.kind() == RecordingFile::Kind::Wav) {
        if (calcClasses)
            categorize(wavFileName, row.record);
        else if (!recorderResultFileName.isEmpty())
            review(wavFileName, recorderResultFileName, reviewMode, row.record);
    }
    if (m_stop)
        return;
    const ClassRecord& record = row.record;
    emit signalFileInfoHeaderFinished(index, record.classes[0], record.classes[1], record.classes[2],
                                      record.classes[3], record.autoClass, record.accepted, row.length,
                                      row.date, row.time, record.comment);
}

RecordingRow GetFileInfoThread::readHeader(const QString& path)
{
    m_file.load(path, true);
    const WavFields& wav = m_file.wav();
    RecordingRow row;
    row.length = unknown();
    if (m_file.kind() == RecordingFile::Kind::Wav) {
        if (wav.fmtFound && wav.dataFound) // at 8 bits there can be more samples than an int counts
            row.length = recordingLengthText(wav.frameCount(), wav.sampleRate, QLocale());
        row.date = wav.timeRecDate.isEmpty() ? shortDateFromIso(wav.bextDate) : wav.timeRecDate;
        row.time = wav.timeDate.isEmpty() ? wav.bextTime : wav.timeDate;
        row.record = ClassRecord::parse(wav.bextDescription);
    } else if (m_file.kind() == RecordingFile::Kind::Raw) {
        if (m_file.errorText().isEmpty())
            row.length = recordingLengthText(static_cast<quint32>(m_file.sampleSize()), RawReader::sampleRate,
                                             QLocale());
        row.date = m_file.date();
        row.time = m_file.time();
    }
    row.date = orUnknown(row.date);
    row.time = orUnknown(row.time);
    return row;
}

void GetFileInfoThread::categorize(const QString& path, ClassRecord& record)
{
    bool changed = false;
    if (record.autoClass.isEmpty()) {
        if (!computeProposal(path, record))
            return;
        changed = true;
    }
    if (clearForeignClasses(record, categorizationVocabulary()) || changed)
        writeBack(path, record);
}

bool GetFileInfoThread::computeProposal(const QString& path, ClassRecord& record)
{
    m_file.load(path);
    const std::vector<int> samples = m_file.takeSamples();
    QStringList classes;
    auto outcome = SpectrogramEngine::Outcome::TooLarge;
    if (!samples.empty())
        outcome = detectFileClasses(samples, m_file.bitsPerSample(), m_file.sampleRate(), m_stop, &classes);
    if (outcome == SpectrogramEngine::Outcome::TooLarge)
        m_prompts.warn(QStringLiteral("Warning"),
                       QStringLiteral("The file %1 could not be loaded.\nCategorization aborted!").arg(path));
    if (outcome != SpectrogramEngine::Outcome::Complete)
        return false;
    record.autoClass = proposeFileClass(classes);
    return true;
}

void GetFileInfoThread::review(const QString& path, const QString& resultFileName, int reviewMode,
                               ClassRecord& record)
{
    const auto mode = reviewMode == 1 ? RecorderResult::Mode::Species : RecorderResult::Mode::Groups;
    record.autoClass = m_recorderResult.proposal(resultFileName, path, mode);
    if (clearForeignClasses(record, reviewVocabulary(mode)))
        writeBack(path, record);
}
