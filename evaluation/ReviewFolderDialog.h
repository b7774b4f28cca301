#ifndef SONAVIA_EVALUATION_REVIEWFOLDERDIALOG_H
#define SONAVIA_EVALUATION_REVIEWFOLDERDIALOG_H

#include <QDialog>

#include <memory>

namespace Ui {
class ReviewFolderDialog;
}

/// Asks for the class tree in which a recorder's results are reviewed. GUI thread.
class ReviewFolderDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ReviewFolderDialog(QWidget* parent);
    ~ReviewFolderDialog() override;

    /// Else it is the advanced one.
    bool isSimpleTree() const;

private:
    std::unique_ptr<Ui::ReviewFolderDialog> m_ui;
};

#endif
