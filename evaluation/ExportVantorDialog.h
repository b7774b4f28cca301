#ifndef SONAVIA_EVALUATION_EXPORTVANTORDIALOG_H
#define SONAVIA_EVALUATION_EXPORTVANTORDIALOG_H

#include "evaluation/ClassChoiceTree.h"
#include "evaluation/core/TimeZoneChoice.h"

#include <QDialog>

#include <memory>

class QTreeWidgetItem;

namespace Ui {
class ExportVantorDialog;
}

/// Asks which classes are bats' and go into the file for Vantor, and how the recorder's clock was set. GUI
/// thread.
class ExportVantorDialog : public QDialog
{
    Q_OBJECT

public:
    /// `classText` as ClassChoice::Tally makes it.
    ExportVantorDialog(QWidget* parent, const QString& classText);
    ~ExportVantorDialog() override;

    QStringList checkedClasses() const;
    TimeZoneChoice time() const;

private slots:
    void checkBox(int state); ///< of a class; the sender says which
    void on_treeWidget_itemDoubleClicked(QTreeWidgetItem* item, int column);

private:
    std::unique_ptr<Ui::ExportVantorDialog> m_ui;
    std::unique_ptr<ClassChoiceTree> m_classes;
};

#endif
