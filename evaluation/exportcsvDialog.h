#ifndef SONAVIA_EVALUATION_EXPORTCSVDIALOG_H
#define SONAVIA_EVALUATION_EXPORTCSVDIALOG_H

#include "evaluation/ClassChoiceTree.h"
#include "evaluation/core/CsvExport.h"

#include <QDialog>

#include <memory>

class QTreeWidgetItem;

namespace Ui {
class exportcsvDialog;
}

/// Asks what a table of recordings is to hold: which classes, which events, and how the recorder's clock was
/// set. It writes nothing. GUI thread.
class exportcsvDialog : public QDialog
{
    Q_OBJECT

public:
    /// `classText` as ClassChoice::Tally makes it.
    exportcsvDialog(QWidget* parent, const QString& classText);
    ~exportcsvDialog() override;

    /// All but CsvExport::unassigned, which the list says and not the user.
    CsvExport choice() const;

private slots:
    void checkBox(int state); ///< of a class; the sender says which
    void on_treeWidget_itemDoubleClicked(QTreeWidgetItem* item, int column);
    void on_radioButton_clicked();
    void on_radioButton_2_clicked();
    void on_checkBox_clicked(bool checked);
    void on_checkBox_2_clicked(bool checked);
    void on_checkBox_3_clicked(bool checked);

private:
    void setInterval(int minutes, bool wanted);

    std::unique_ptr<Ui::exportcsvDialog> m_ui;
    std::unique_ptr<ClassChoiceTree> m_classes;
    QVector<int> m_intervals;
    ClassEvents::Mode m_mode = ClassEvents::Mode::Dynamic;
};

#endif
