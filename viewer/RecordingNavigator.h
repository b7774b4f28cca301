#ifndef SONAVIA_VIEWER_RECORDINGNAVIGATOR_H
#define SONAVIA_VIEWER_RECORDINGNAVIGATOR_H

#include <QObject>

class FileListPane;
class QTreeWidgetItem;
struct RecordingSession;

/// Moves through one file list and says which recording is to be shown. Everything is ignored while a
/// spectrogram is computed. GUI thread.
class RecordingNavigator : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing.
    RecordingNavigator(FileListPane& pane, const RecordingSession& session, QObject* parent = nullptr);

    /// The next row up or down that can be selected becomes current and is loaded; none, nothing happens.
    void previous();
    void next();
    /// A double click: loads the row, or opens the editor in the column of comments. Where classes are
    /// assigned, a row is loaded only when its header has been read.
    void itemDoubleClicked(QTreeWidgetItem* item, int column);
    /// The key Return: loads the current row.
    void loadCurrent();
    /// Makes `item` the current and only selected row and loads it.
    void show(QTreeWidgetItem* item);

signals:
    void recordingWanted(const QString& path);

private:
    void step(int direction);
    void load(const QTreeWidgetItem* item);

    FileListPane& m_pane;
    const RecordingSession& m_session;
};

#endif
