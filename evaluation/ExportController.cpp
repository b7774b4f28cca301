#include "evaluation/ExportController.h"

#include "base/SettingsStore.h"
#include "base/UserPrompts.h"
#include "classes/core/ClassTree.h"
#include "evaluation/ChangeYearsDialog.h"
#include "evaluation/ExportVantorDialog.h"
#include "evaluation/ExportVantorDialog2.h"
#include "evaluation/core/ClassChoice.h"
#include "evaluation/core/ExportFile.h"
#include "evaluation/core/VantorExport.h"
#include "evaluation/exportcsvDialog.h"
#include "recordings/RecordingSession.h"

#include <QFileDialog>

ExportController::ExportController(QWidget& window, const ListedRows& rows, const RecordingSession& session,
                                   SettingsStore& settings, UserPrompts& prompts)
    : QObject(&window),
      m_window(window),
      m_rows(rows),
      m_session(session),
      m_settings(settings),
      m_prompts(prompts)
{}

void ExportController::exportCSVFile()
{
    if (m_rows.list())
        exportCsv(ListedRows::Choice());
}

void ExportController::exportCSVFileFromAction(const QList<QTreeWidgetItem*>& selectedItems)
{
    if (m_rows.list())
        exportCsv(ListedRows::Choice(selectedItems));
}

void ExportController::exportVantorFile()
{
    if (m_rows.list())
        exportVantor(ListedRows::Choice());
}

void ExportController::exportVantorFileFromAction(const QList<QTreeWidgetItem*>& selectedItems)
{
    if (m_rows.list())
        exportVantor(ListedRows::Choice(selectedItems));
}

void ExportController::exportCsv(const ListedRows::Choice& rows)
{
    const QString path = askForPath(QStringLiteral("CSV Export File"), SettingKeys::exportCSVPath);
    if (path.isEmpty())
        return;
    const auto unassigned =
        hasProposals() ? ClassChoice::Unassigned::ByDetection : ClassChoice::Unassigned::AsOne;
    exportcsvDialog dialog(&m_window, m_rows.classText(rows, unassigned));
    if (dialog.exec() != QDialog::Accepted)
        return;
    CsvExport choice = dialog.choice();
    choice.unassigned = unassigned;
    write(path, choice.text(m_rows.read(rows)), SettingKeys::exportCSVPath);
}

void ExportController::exportVantor(const ListedRows::Choice& rows)
{
    const QString path = askForPath(QStringLiteral("Vantor Export File"), SettingKeys::exportVantorPath);
    if (path.isEmpty())
        return;
    QStringList names;
    TimeZoneChoice time;
    if (!(hasProposals() ? chooseSpecies(names, time) : chooseClasses(rows, names, time)))
        return;
    const VantorExport file(m_rows.read(rows), names);
    if (const std::optional<int> year = chooseYear(file.years()))
        write(path, file.text(time, *year), SettingKeys::exportVantorPath);
}

bool ExportController::chooseClasses(const ListedRows::Choice& rows, QStringList& names, TimeZoneChoice& time)
{
    const QString classText = m_rows.classText(rows);
    const QVector<ClassChoice::Line> lines = ClassChoice::lines(classText);
    if (lines.size() == 1 && lines.first().name == ClassTree::unassigned()) {
        m_prompts.warn(QStringLiteral("Warning"),
                       QStringLiteral("Cannot export Vantor file. Only unassigned files in folder."));
        return false;
    }
    ExportVantorDialog dialog(&m_window, classText);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    names = dialog.checkedClasses();
    time = dialog.time();
    return true;
}

bool ExportController::chooseSpecies(QStringList& names, TimeZoneChoice& time)
{
    ExportVantorDialog2 dialog(&m_window);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    names = VantorExport::speciesCodes(m_session.viewMode);
    time = dialog.time();
    return true;
}

std::optional<int> ExportController::chooseYear(const QVector<int>& years)
{
    if (years.size() < 2)
        return 0;
    ChangeYearsDialog dialog(&m_window, years);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.year();
}

QString ExportController::askForPath(const QString& title, const SettingKey<QString>& key)
{
    return QFileDialog::getSaveFileName(&m_window, title, m_settings.value(key),
                                        QStringLiteral("CSV Files (*.csv)"));
}

void ExportController::write(const QString& path, const QString& text, const SettingKey<QString>& key)
{
    if (ExportFile::write(path, text))
        m_settings.setValue(key, path);
    else
        m_prompts.fail(QStringLiteral("Error"), ExportFile::failureText());
}

bool ExportController::hasProposals() const
{
    return m_session.viewMode >= 3;
}
