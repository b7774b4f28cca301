#ifndef SONAVIA_EVALUATION_EXPORTCONTROLLER_H
#define SONAVIA_EVALUATION_EXPORTCONTROLLER_H

#include "evaluation/ListedRows.h"
#include "evaluation/core/TimeZoneChoice.h"

#include <QObject>

#include <optional>

class QWidget;
class SettingsStore;
class UserPrompts;
struct RecordingSession;
template <typename T>
struct SettingKey;

/// Writes the listed recordings into a CSV file or a file for the Vantor tool: asks where to, asks what, and
/// says when it could not be written. While a single file is shown there is nothing to export. GUI thread;
/// each call returns when the export is done or called off.
class ExportController : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing; becomes a child of `window`, which gets the dialogs.
    ExportController(QWidget& window, const ListedRows& rows, const RecordingSession& session,
                     SettingsStore& settings, UserPrompts& prompts);

    void exportCSVFile();
    /// The same for some rows, in the order of their list.
    void exportCSVFileFromAction(const QList<QTreeWidgetItem*>& selectedItems);

    void exportVantorFile();
    void exportVantorFileFromAction(const QList<QTreeWidgetItem*>& selectedItems);

private:
    void exportCsv(const ListedRows::Choice& rows);
    void exportVantor(const ListedRows::Choice& rows);
    bool chooseClasses(const ListedRows::Choice& rows, QStringList& names, TimeZoneChoice& time);
    bool chooseSpecies(QStringList& names, TimeZoneChoice& time);
    /// 0 when no time has to be moved, nothing when the user called it off.
    std::optional<int> chooseYear(const QVector<int>& years);
    QString askForPath(const QString& title, const SettingKey<QString>& key);
    void write(const QString& path, const QString& text, const SettingKey<QString>& key);
    /// The lists show proposals.
    bool hasProposals() const;

    QWidget& m_window;
    ListedRows m_rows;
    const RecordingSession& m_session;
    SettingsStore& m_settings;
    UserPrompts& m_prompts;
};

#endif
