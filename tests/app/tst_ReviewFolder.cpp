#include "app/MainWindow.h"
#include "app/QueuedTypes.h"
#include "evaluation/ExportVantorDialog2.h"
#include "evaluation/ReviewFolderDialog.h"
#include "recordings/WavReader.h"
#include "recordings/rows/RowItem.h"
#include "tests/evaluation/DialogScript.h"
#include "tests/evaluation/folderContents.h"
#include "tests/support/TemporarySettings.h"
#include "tools/WavBytes.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QWindow>
#include <QtTest>

/// The results of a recorder, from the menu over both class trees into the recordings and to Vantor.
class tst_ReviewFolder : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { registerQueuedTypes(); }
    void review_data()
    {
        QTest::addColumn<QString>("tree");
        QTest::addColumn<QString>("rows"); // name, proposal, accepted, class 1 and class 2
        QTest::addColumn<QString>("records");
        QTest::addColumn<QString>("exported");
        QTest::newRow("simple") << "radioButton_simpleTree"
                                << "a.wav Pip, Nyc 0   b.wav , Nyc    c.wav No Call    d.wav   Nyc "
                                << "Pip + Nyc|Pip, Nyc|1|x#Nyc|, Nyc|1|# +  +  + |No Call||#Nyc|y"
                                << "12.06.2026 22:00:00;Pip;Nyc;;#12.06.2026 22:00:00;Nyc;;;#"
                                   "12.06.2026 22:00:00;Nyc;;;";
        QTest::newRow("advanced") << "radioButton_advancedTree"
                                  << "a.wav Ppip 0 Ppip  b.wav     c.wav No Call    d.wav   Nyc "
                                  << "Ppip|Ppip|1|x#||1|# +  +  + |No Call||#Nyc|y"
                                  << "12.06.2026 22:00:00;Ppip;;;#12.06.2026 22:00:00;Nyc;;;";
    }

    void review()
    {
        QFETCH(QString, tree);
        const TemporarySettings settings;
        const QTemporaryDir folder;
        const QStringList names{"a.wav", "b.wav", "c.wav", "d.wav"};
        const QList<QByteArray> descriptions{"Ppip|old|0|x", "", "Pip|", "Nyc|y"};
        for (int i = 0; i < names.size(); ++i) {
            WavBytes wav;
            wav.fmt(250000).bext({descriptions.at(i), {}, {}, "2026-06-12", "22:00:00", {}});
            wav.data(std::vector<std::int16_t>(3000));
            QVERIFY(writeBytes(folder.filePath(names.at(i)), wav.bytes()));
        }
        QVERIFY(writeBytes(folder.filePath("calls_ch1_files.txt"),
                           "a.wav\t\t\tbat\tPipistrelloid\t90\tNyctaloid\t80\tPpip\t70\r\n"
                           "b.wav\t\t\tbat\t\t\tNyctaloid\t80\r\n"
                           "c.wav\t\t\tnoise\t\t\t\r\n"
                           "d.wav\t\t\tbat"));
        MainWindow window;
        window.show();
        window.activateWindow();
        DialogScript dialogs;
        dialogs.choosePath(folder.path());
        dialogs.on<ReviewFolderDialog>([tree](ReviewFolderDialog& dialog) {
            dialog.findChild<QAbstractButton*>(tree)->click();
            dialog.accept();
        });
        window.findChild<QAction*>("actionManual_Review_of_RECORDER_WEA_Offline_Analysis")->trigger();
        auto* exportAction = window.findChild<QAction*>("actionExport_Vantor_File");
        QTRY_VERIFY_WITH_TIMEOUT(exportAction->isEnabled() && window.windowTitle().contains("a.wav"), 20000);
        auto* list = window.findChild<QTreeWidget*>("treeWidget_fileView");
        QStringList rows;
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            for (const int column :
                 {RowItem::Name, RowItem::Proposal, RowItem::Accepted, RowItem::Class1, RowItem::Class2})
                rows.append(list->topLevelItem(i)->text(column));
        QTEST(rows.join(' '), "rows");

        list->setFocus();
        for (const int row : {0, 1}) {
            list->setCurrentItem(list->topLevelItem(row));
            QTest::keyClick(window.windowHandle(), Qt::Key_Return, Qt::ControlModifier);
        }
        QStringList records;
        for (const QString& name : names) {
            WavReader reader;
            reader.load(folder.filePath(name), true);
            records.append(reader.bextDescription);
        }
        QTEST(records.join('#'), "records");

        dialogs.choosePath(folder.filePath("vantor.csv"));
        dialogs.on<ExportVantorDialog2>([](ExportVantorDialog2& dialog) {
            dialog.findChild<QComboBox*>("comboBox")->setCurrentText("Central European Standard Time");
            dialog.findChild<QAbstractButton*>("checkBox_daylightSaving")->click();
            dialog.accept();
        });
        exportAction->trigger();
        const QString text = bytesOf(folder.filePath("vantor.csv"));
        QTEST(text.split("\r\n").mid(1).join('#').chopped(1), "exported");
    }
};

QTEST_MAIN(tst_ReviewFolder)

#include "tst_ReviewFolder.moc"
