#include "evaluation/ChangeYearsDialog.h"
#include "evaluation/ExportController.h"
#include "evaluation/ExportVantorDialog.h"
#include "evaluation/ExportVantorDialog2.h"
#include "evaluation/exportcsvDialog.h"
#include "tests/evaluation/DialogScript.h"
#include "tests/evaluation/EvaluationWindow.h"
#include "tests/evaluation/exampleRow.h"
#include "tests/evaluation/folderContents.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

constexpr int exportColumn = 2;

QCheckBox* classBox(const QDialog& dialog, const QString& name)
{
    auto* tree = dialog.findChild<QTreeWidget*>("treeWidget");
    for (QTreeWidgetItem* row : tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive))
        return qobject_cast<QCheckBox*>(tree->itemWidget(row, exportColumn));
    return nullptr;
}

void click(const QDialog& dialog, const QString& name)
{
    dialog.findChild<QAbstractButton*>(name)->click();
}

void chooseZone(const QDialog& dialog, const QString& name)
{
    dialog.findChild<QComboBox*>("comboBox")->setCurrentText(name);
}

/// Rows of a list as a dialog shows them, "name|count|checked|colour", children indented.
QStringList shownClasses(const QDialog& dialog)
{
    QStringList shown;
    auto* tree = dialog.findChild<QTreeWidget*>("treeWidget");
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        auto* box = qobject_cast<QCheckBox*>(tree->itemWidget(*it, exportColumn));
        shown.append(QStringLiteral("%1%2|%3|%4|%5")
                         .arg((*it)->parent() ? "  " : "", (*it)->text(0), (*it)->text(1),
                              box->isChecked() ? "x" : "", (*it)->foreground(0).color().name()));
    }
    return shown;
}

const QString centralEurope = "Central European Standard Time";

} // namespace

class tst_ExportController : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void exportsCsv();
    void exportsSelectedRowsInListOrder();
    void offersClassesAsItShould();
    void exportsDetectedNoCalls();
    void writesNothingWhenCalledOff();
    void saysWhenCsvCannotBeWritten();
    void exportsVantor();
    void refusesVantorWithoutClasses();
    void exportsVantorFromEvaluations();
    void movesVantorYears();

private:
    std::unique_ptr<EvaluationWindow> m_window;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DialogScript> m_dialogs;
    ExportController* m_export = nullptr;
    QString m_path;
};

void tst_ExportController::init()
{
    m_window = std::make_unique<EvaluationWindow>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath("table.csv");
    m_dialogs = std::make_unique<DialogScript>();
    m_export = new ExportController(m_window->window, m_window->rows(), m_window->session, m_window->settings,
                                    m_window->prompts);
    m_window->session.viewMode = 1;
    m_window->add(m_window->folderList, exampleRow("a.wav", "01/08/17", "21:00:00", "Pip + Nyc|"));
    m_window->add(m_window->folderList, exampleRow("b.wav", "01/08/17", "21:00:30", "Pip|first"));
    m_window->add(m_window->folderList, exampleRow("c.wav", "01/08/17", "21:00:59", ""));
}

void tst_ExportController::cleanup()
{
    QVERIFY(m_dialogs->isDone());
    QCOMPARE(m_window->prompts.takeAsked(), QStringList());
}

void tst_ExportController::exportsCsv()
{
    m_window->settings.setValue(SettingKeys::exportCSVPath, m_path);
    m_dialogs->choosePath(m_path);
    m_dialogs->on<exportcsvDialog>([](exportcsvDialog& dialog) {
        chooseZone(dialog, centralEurope);
        click(dialog, "checkBox_3"); // 10 min, then 1 min: columns stay in order
        click(dialog, "checkBox_2");
        click(dialog, "checkBox");
        click(dialog, "checkBox_2");
        click(dialog, "radioButton_2");
        classBox(dialog, "Unassigned")->click();
        dialog.accept();
    });
    m_export->exportCSVFile();
    QCOMPARE(m_dialogs->asked, QStringList("CSV Export File|" + m_folder->path() + "|CSV Files (*.csv)"));
    QCOMPARE(bytesOf(m_path),
             QByteArray("FileName;Date;Time [UTC+01:00];Length [s];Class1;Class2;Class3;Class4;"
                        "1min class event (static);10min class event (static);Comment\r\n"
                        "a.wav;01/08/17;21:00:00;3.000;Pip;Nyc;;;Pip,Nyc;Pip,Nyc;\r\n"
                        "b.wav;01/08/17;21:00:30;3.000;Pip;;;;;;first\r\n"));
    QCOMPARE(m_window->settings.value(SettingKeys::exportCSVPath), m_path);
}

void tst_ExportController::exportsSelectedRowsInListOrder()
{
    m_dialogs->choosePath(m_path);
    m_dialogs->on<exportcsvDialog>([](exportcsvDialog& dialog) {
        chooseZone(dialog, centralEurope);
        click(dialog, "checkBox_4");
        dialog.accept();
    });
    const QTreeWidget& list = m_window->folderList;
    m_export->exportCSVFileFromAction({list.topLevelItem(2), list.topLevelItem(1)});
    QCOMPARE(bytesOf(m_path),
             QByteArray("FileName;Date;Time [GMT+1];Length [s];Class1;Class2;Class3;Class4;Comment\r\n"
                        "b.wav;01/08/17;21:00:30;3.000;Pip;;;;first\r\n"
                        "c.wav;01/08/17;21:00:59;3.000;;;;;\r\n"));
}

void tst_ExportController::offersClassesAsItShould()
{
    exportcsvDialog dialog(nullptr, "Pip\t12\n\tPnat\t3\nUnassigned\t2\nDetected No Call\t4\n");
    QCOMPARE(shownClasses(dialog), QStringList({"Pip|12|x|#000000", "  Pnat|3|x|#000000",
                                                "Unassigned|2|x|#ff0000", "Detected No Call|4|x|#0000ff"}));
    QCOMPARE(dialog.choice().classes, QStringList({"Pip", "Pnat", "Unassigned", "Detected No Call"}));
    QCOMPARE(dialog.choice().mode, ClassEvents::Mode::Dynamic);
    QVERIFY(!dialog.choice().time.daylightSaving);
    classBox(dialog, "Pip")->click();
    classBox(dialog, "Unassigned")->click();
    classBox(dialog, "Pip")->click();
    QCOMPARE(dialog.choice().classes, QStringList({"Pip", "Pnat", "Detected No Call"}));
    auto* tree = dialog.findChild<QTreeWidget*>("treeWidget");
    dialog.show();
    const QPoint pos = tree->visualItemRect(tree->topLevelItem(0)).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, pos);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, pos);
    QCOMPARE(dialog.choice().classes, QStringList({"Pnat", "Detected No Call"}));
}

void tst_ExportController::exportsDetectedNoCalls()
{
    m_window->session.viewMode = 3;
    m_window->add(m_window->evaluationList, exampleRow("n.wav", "01/08/17", "21:00:00", "|No call|0|"));
    m_dialogs->choosePath(m_path);
    m_dialogs->on<exportcsvDialog>([](exportcsvDialog& dialog) {
        QCOMPARE(shownClasses(dialog), QStringList("Detected No Call|1|x|#0000ff"));
        dialog.accept();
    });
    m_export->exportCSVFile();
    QVERIFY(bytesOf(m_path).endsWith("\r\nn.wav;01/08/17;21:00:00;3.000;Detected No Call;;;;\r\n"));
}

void tst_ExportController::writesNothingWhenCalledOff()
{
    m_dialogs->cancel<QFileDialog>();
    m_export->exportCSVFile();
    m_dialogs->choosePath(m_path);
    m_dialogs->cancel<exportcsvDialog>();
    m_export->exportCSVFile();
    m_dialogs->choosePath(m_path);
    m_dialogs->cancel<ExportVantorDialog>();
    m_export->exportVantorFile();
    m_window->session.viewMode = 0; // a single file: nothing to export
    m_export->exportCSVFile();
    m_export->exportVantorFileFromAction({m_window->folderList.topLevelItem(0)});
    QVERIFY(folderContents(m_folder->path()).isEmpty());
    QCOMPARE(m_window->settings.value(SettingKeys::exportCSVPath), QStringLiteral("C:/"));
}

void tst_ExportController::saysWhenCsvCannotBeWritten()
{
    m_dialogs->choosePath(m_path);
    m_dialogs->on<exportcsvDialog>([this](exportcsvDialog& dialog) {
        m_folder->remove(); // vanishes while the dialog is open
        dialog.accept();
    });
    m_export->exportCSVFile();
    QCOMPARE(m_window->prompts.takeAsked(), QStringList("critical|Error|Could not write to file."));
    QCOMPARE(m_window->settings.value(SettingKeys::exportCSVPath), QStringLiteral("C:/"));
}

void tst_ExportController::exportsVantor()
{
    m_dialogs->choosePath(m_path);
    m_dialogs->on<ExportVantorDialog>([](ExportVantorDialog& dialog) {
        QCOMPARE(shownClasses(dialog),
                 QStringList({"Pip|2|x|#000000", "Nyc|1|x|#000000", "Unassigned|1|x|#ff0000"}));
        chooseZone(dialog, centralEurope);
        classBox(dialog, "Pip")->click();
        click(dialog, "checkBox_daylightSaving");
        dialog.accept();
    });
    m_export->exportVantorFile();
    QVERIFY(m_dialogs->asked.value(0).startsWith("Vantor Export File|"));
    QCOMPARE(bytesOf(m_path), QByteArray("DateTime (MESZ, UTC+2);Class1;Class2;Class3;Class4\r\n"
                                         "01.08.2017 21:00:00;Pip;Nyc;;\r\n"));
    QCOMPARE(m_window->settings.value(SettingKeys::exportVantorPath), m_path);
}

void tst_ExportController::refusesVantorWithoutClasses()
{
    m_dialogs->choosePath(m_path);
    m_export->exportVantorFileFromAction({m_window->folderList.topLevelItem(2)});
    QCOMPARE(m_window->prompts.takeAsked(),
             QStringList("warning|Warning|Cannot export Vantor file. Only unassigned files in folder."));
    QVERIFY(folderContents(m_folder->path()).isEmpty());
}

void tst_ExportController::exportsVantorFromEvaluations()
{
    m_window->add(m_window->evaluationList, exampleRow("a.wav", "01/08/17", "21:00:00", "PipNat|"));
    m_window->add(m_window->evaluationList, exampleRow("b.wav", "01/08/17", "21:00:01", "Pnat|"));
    m_window->add(m_window->evaluationList, exampleRow("c.wav", "01/08/17", "21:00:02", "No Call|"));
    const QMap<int, QByteArray> lines{{3, "01.08.2017 22:00:00;PipNat;;;"},
                                      {4, "01.08.2017 22:00:01;Pnat;;;"}};
    for (const int mode : lines.keys()) {
        m_window->session.viewMode = mode;
        const QString path = m_folder->filePath(QString::number(mode));
        m_dialogs->choosePath(path);
        m_dialogs->on<ExportVantorDialog2>([](ExportVantorDialog2& dialog) {
            chooseZone(dialog, centralEurope);
            dialog.accept();
        });
        m_export->exportVantorFile();
        QCOMPARE(bytesOf(path),
                 "DateTime (MESZ, UTC+2);Class1;Class2;Class3;Class4\r\n" + lines.value(mode) + "\r\n");
    }
}

void tst_ExportController::movesVantorYears()
{
    m_window->add(m_window->folderList, exampleRow("d.wav", "15/06/20", "21:00:00", "Nyc|"));
    for (const QString year : {"", "2020"}) { // the first time called off
        m_dialogs->choosePath(m_path);
        m_dialogs->accept<ExportVantorDialog>();
        m_dialogs->on<ChangeYearsDialog>([year](ChangeYearsDialog& dialog) {
            auto* box = dialog.findChild<QComboBox*>("comboBox");
            QCOMPARE(box->itemText(0) + box->itemText(1), QStringLiteral("20172020"));
            box->setCurrentText(year);
            dialog.done(year.isEmpty() ? QDialog::Rejected : QDialog::Accepted);
        });
        m_export->exportVantorFile();
        QCOMPARE(QFile::exists(m_path), !year.isEmpty());
    }
    for (const QByteArray& line : bytesOf(m_path).split('\n').mid(1, 3))
        QCOMPARE(line.mid(6, 4), QByteArray("2020"));
}

QTEST_MAIN(tst_ExportController)

#include "tst_ExportController.moc"
