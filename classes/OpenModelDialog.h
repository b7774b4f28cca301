#ifndef SONAVIA_CLASSES_OPENMODELDIALOG_H
#define SONAVIA_CLASSES_OPENMODELDIALOG_H

#include "classes/core/ClassTree.h"

#include <QDialog>

#include <memory>

class ClassTreeEditor;
class QTreeWidgetItem;
class UserPrompts;

namespace Ui {
class OpenModelDialog;
}

/// Lets the user choose and change the class tree that a folder is opened with: a tree that comes with the
/// program, one from a model file, or the present one. No recording is touched.
class OpenModelDialog : public QDialog
{
    Q_OBJECT

public:
    /// Starts with `present`.
    OpenModelDialog(const ClassTree& present, UserPrompts& prompts, QWidget* parent = nullptr);
    ~OpenModelDialog() override;

    /// The tree as it is shown; what the user chose, once accepted.
    ClassTree classTree() const;

protected:
    /// The Delete key of the tree.
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void on_pushButton_clicked();
    void on_pushButton_2_clicked();
    void on_pushButton_3_clicked();
    void on_pushButton_4_clicked();
    void on_pushButton_5_clicked();
    void on_buttonBox_accepted();
    void on_buttonBox_rejected();
    void rightClickMenu(QPoint pos);

private:
    void replaceBy(const ClassTree& tree);
    void remove(QTreeWidgetItem* item);

    std::unique_ptr<Ui::OpenModelDialog> m_ui;
    UserPrompts& m_prompts;
    ClassTreeEditor* m_editor; // a child of the tree
};

#endif
