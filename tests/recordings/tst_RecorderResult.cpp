#include "recordings/RecorderResult.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_RecorderResult : public QObject
{
    Q_OBJECT

private slots:
    void proposal_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("groups");
        QTest::addColumn<QString>("species");

        const auto row = [](const char* name, const char* line, const char* groups, const char* species) {
            QTest::newRow(name) << QByteArray(line) << groups << species;
        };
        row("two groups", "a.wav\t1\t2\tbat\tPipistrelloid\t5\tNyctaloid\t7\tPpip\t9\tNnoc\t11\tEnil\t13",
            "Pip, Nyc", "Ppip, Nnoc, Enil");
        row("other groups stand as they are", "a.wav\t\t\tbat\tBarb\t\tSocial\t\tx", "Barb, Social", "x");
        row("no first one", "a.wav\t\t\tbat\t\t\tNyctaloid\t\t\t\tNnoc", ", Nyc", ", Nnoc");
        row("gap", "a.wav\t\t\tbat\t\t\t\t\tPpip\t\t\t\tEnil", "", "Ppip, Enil");
        row("exactly seven fields", "a.wav\t\t\tbat\tPipistrelloid\t\t", "Pip", "");
        row("six fields", "a.wav\t\t\tbat\tPipistrelloid\t", "", "");
        row("noise", "a.wav\t\t\tnoise\tPipistrelloid\t\t", "No Call", "No Call");
        row("test", "a.wav\t\t\ttest\t\t\t", "No Call", "No Call");
        row("another kind", "a.wav\t\t\tBat\tPipistrelloid\t\tx\t\ty", "", "");
        row("name in another field", "1\t2\t\tbat\tPipistrelloid\t\t\tx/a.wav", "Pip", "");
    }

    void proposal()
    {
        QFETCH(QByteArray, line);
        for (const char* end : {"\n", "\r\n", ""}) {
            store("name\tof\tthe\tcolumns\n" + line + end);
            RecorderResult result;
            QTEST(result.proposal(m_path, "/some/folder/a.wav", RecorderResult::Mode::Groups), "groups");
            QTEST(result.proposal(m_path, "/some/folder/a.wav", RecorderResult::Mode::Species), "species");
        }
    }

    /// Names over two letters are full of each other. The line's number stands in the field of the first
    /// group.
    void sameLineAsPlainSearch()
    {
        QStringList names{"One.wav", "five.WAV", QStringLiteral("f\u00fcnf.wav"), "one.wav"};
        QRandomGenerator random(7);
        for (int i = 0; i < 400; ++i) {
            names.append(".wav");
            for (int letters = random.bounded(9); letters > 0; --letters)
                names.last().prepend(QChar('a' + random.bounded(2)));
        }
        QStringList lines;
        for (const QString& name : names)
            lines.append(QStringLiteral("%1\t\t\tbat\t%2\t\t").arg(name).arg(lines.size()));
        lines.append(QString(".wav").repeated(5000) + "\t\t\tbat\tlong\t\t");
        names.append({"nowhere.wav", ".wav.wav", "ONE.wav", "3\t\t\naa.wav"});
        const QString text = lines.join('\n');
        for (const QByteArray& bytes : {text.toUtf8(), text.toLatin1()}) {
            store(bytes);
            RecorderResult result;
            for (const QString& name : names)
                QCOMPARE(result.proposal(m_path, "folder/" + name, RecorderResult::Mode::Groups),
                         lines.filter(name).value(0).section('\t', 4, 4));
        }
    }

    void changedFileIsReadAgain()
    {
        RecorderResult result;
        const auto proposal = [&] { return result.proposal(m_path, "a.wav", RecorderResult::Mode::Groups); };
        store("a.wav\t\t\tbat\tfirst\t\t");
        QCOMPARE(proposal(), QStringLiteral("first"));
        store("a.wav\t\t\tbat\tsecond\t\t");
        QCOMPARE(proposal(), QStringLiteral("second"));
        QVERIFY(QFile::remove(m_path));
        QCOMPARE(proposal(), QString());
        QVERIFY(QDir().mkdir(m_path)); // no file either
        QCOMPARE(proposal(), QString());
    }

private:
    void store(const QByteArray& text)
    {
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath("calls_ch1_files.txt");
};

QTEST_APPLESS_MAIN(tst_RecorderResult)
#include "tst_RecorderResult.moc"
