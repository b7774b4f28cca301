#ifndef SONAVIA_EVALUATION_EXPORTVANTORDIALOG2_H
#define SONAVIA_EVALUATION_EXPORTVANTORDIALOG2_H

#include "evaluation/core/TimeZoneChoice.h"

#include <QDialog>

#include <memory>

namespace Ui {
class ExportVantorDialog2;
}

/// Asks how the recorder's clock was set, before an export whose classes are given. GUI thread.
class ExportVantorDialog2 : public QDialog
{
    Q_OBJECT

public:
    explicit ExportVantorDialog2(QWidget* parent);
    ~ExportVantorDialog2() override;

    TimeZoneChoice time() const;

private:
    std::unique_ptr<Ui::ExportVantorDialog2> m_ui;
};

#endif
