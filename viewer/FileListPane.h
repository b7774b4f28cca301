#ifndef SONAVIA_VIEWER_FILELISTPANE_H
#define SONAVIA_VIEWER_FILELISTPANE_H

#include "recordings/RecordingRow.h"

#include <QObject>

class AcceptDelegate;
class CommentDelegate;
class QLabel;
class QProgressBar;
class QTreeWidget;
class QTreeWidgetItem;
struct RecordingSession;

/// A list of recordings with its progress bar and count label: headers, rows, the editor of the comment and
/// the check box "Accept proposal". It shows and asks; what a gesture means for a file is up to the receiver
/// of its signals. Sized for 100,000 rows. GUI thread.
class FileListPane : public QObject
{
    Q_OBJECT

public:
    enum class Purpose {
        Folder,    ///< an opened folder
        Assignment ///< classes are assigned here: rows have colours and check boxes
    };
    struct Widgets
    {
        QTreeWidget& list;
        QProgressBar& progress;
        QLabel& count;
    };

    /// Owns nothing. Whether proposals are shown starts with no; see setProposalsShown().
    FileListPane(const Widgets& widgets, Purpose purpose, const RecordingSession& session, QObject* parent);

    QTreeWidget& list() { return m_list; }
    Purpose purpose() const { return m_purpose; }
    int rowCount() const;
    QTreeWidgetItem* row(int index) const;

    // Filling, as HeaderChain does it.

    /// Replaces all rows by those of `names`, which are sorted; only their names are known yet. The first
    /// becomes the current one. Sorting by the user is off until endLoading().
    void beginLoading(const QStringList& names);
    /// Shows what was read of the recording in a row; `header.name` is not used.
    void fillRow(int index, const RecordingRow& header);
    void setProgress(int percent);
    /// The rows stay as they are; with `complete` they can be sorted by a click.
    void endLoading(bool complete);

    /// Shows or hides the proposal and the check box.
    void setProposalsShown(bool shown);

    // Gestures. The window's slots of these names forward to them.

    void itemChanged(QTreeWidgetItem* item, int column);
    void selectionChanged();
    /// Opens the editor of a comment, unless a spectrogram is computed or the header is not read yet.
    void editComment(QTreeWidgetItem* item);
    /// As if the check box of the current row had been clicked.
    void toggleAccepted();
    bool hasAcceptBox(QTreeWidgetItem* item) const;

signals:
    /// All rows are gone; what counts them starts at 0. The new ones follow one by one.
    void rowsCleared();
    /// The header of a recording has been read.
    void rowFilled(const RecordingRow& row);
    /// The user typed a comment. The row shows the old one again: who writes it into the file updates it.
    void commentEdited(QTreeWidgetItem* item, const QString& comment);
    /// The user clicked a check box. It follows the row's flag, so that a failed write needs no undoing.
    void acceptToggled(QTreeWidgetItem* item, bool accepted);

private:
    void setUpList();
    void fitNameColumn(const QStringList& names);
    int headerWidth(int column) const;
    QModelIndex cell(QTreeWidgetItem* item, int column) const;
    void acceptClicked(const QModelIndex& index);
    void rowsRemoved();

    QTreeWidget& m_list;
    QProgressBar& m_progress;
    QLabel& m_count;
    Purpose m_purpose;
    const RecordingSession& m_session;
    AcceptDelegate* m_acceptDelegate;
    CommentDelegate* m_commentDelegate;
    bool m_countPending = false;
};

#endif
