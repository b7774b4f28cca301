#ifndef SONAVIA_EVALUATION_COPYFILESDIALOG_H
#define SONAVIA_EVALUATION_COPYFILESDIALOG_H

#include "evaluation/ClassChoiceTree.h"

#include <QDialog>

#include <memory>

class QTreeWidgetItem;

namespace Ui {
class CopyFilesDialog;
}

/// Asks for the classes whose recordings are copied. GUI thread.
class CopyFilesDialog : public QDialog
{
    Q_OBJECT

public:
    /// `classText` as ClassChoice::Tally makes it.
    CopyFilesDialog(QWidget* parent, const QString& classText);
    ~CopyFilesDialog() override;

    QStringList checkedClasses() const;

private slots:
    void checkBox(int state); ///< of a class; the sender says which
    void on_treeWidget_itemDoubleClicked(QTreeWidgetItem* item, int column);

private:
    std::unique_ptr<Ui::CopyFilesDialog> m_ui;
    std::unique_ptr<ClassChoiceTree> m_classes;
};

#endif
