// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "db/programend.h"
#include "platform/access/connection.h"
#include "platform/access/engineerror.h"
#include "tests/support/boxes.h"
#include "tests/support/sampledatabase.h"

#include <QComboBox>
#include <QFile>
#include <QTest>

using basTovarin::DecodeText;
using support::Box;
using support::BoxReader;

namespace {

Box critical(const QString &text)
{
    return {QMessageBox::Critical, QStringLiteral("Error"), text};
}

const std::vector<Box> noBoxes;

} // namespace

class TestDatabase : public QObject
{
    Q_OBJECT

private:
    static std::vector<dictionary::Entry> someEntries()
    {
        return support::entries({"Anna|G|Hebrew|grace", "O'Neil|B|Irish|champion"});
    }

private Q_SLOTS:
    void cleanup() { basDatabase::CloseDatabase(); }

    void decodeText_subtractsTheShiftedKey_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("decoded");
        const auto row = [](const char *text, const char *key, const char *decoded) {
            QTest::addRow("%s by %s", text, key)
                << QString::fromLatin1(text) << QString::fromLatin1(key)
                << QString::fromLatin1(decoded);
        };
        row("any text", "", "any text");
        row("", "KEY", "");
        row("\x82\x83", "A", "AB");       // one letter: the same code from every character
        row("\x82\x83", "a", "AB");       // the key counts as upper case
        row("\x83\x82\x83", "AB", "AAA"); // the first character meets the second letter
        row("A", "B", "\xff");            // below zero it goes round
        row("\x9b"
            "\xc7"
            "\xc2"
            "\xad"
            "\xaf"
            "\xb6"
            "\xbe"
            "\x7a"
            "\x88",
            "MORVANTE", "Lullaby-9");
    }

    void decodeText_subtractsTheShiftedKey()
    {
        QFETCH(QString, text);
        QFETCH(QString, key);
        QFETCH(QString, decoded);
        QCOMPARE(DecodeText(text, key), decoded);
        QCOMPARE(basTovarin::EncodeText(decoded, key), text);
    }

    void readPassword_takesTheFirstLine_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("password");
        const QByteArray encoded =
            basTovarin::EncodeText(QStringLiteral("sesame"), QStringLiteral("MORVANTE")).toLatin1();
        QTest::addRow("one line") << encoded + '\n' << QStringLiteral("sesame");
        QTest::addRow("no line end") << encoded << QStringLiteral("sesame");
        QTest::addRow("more lines") << encoded + "\r\nignored\r\n" << QStringLiteral("sesame");
        QTest::addRow("empty first line") << QByteArray("\r\n") + encoded << QStringLiteral("-1");
        QTest::addRow("empty file") << QByteArray() << QString();
    }

    void readPassword_takesTheFirstLine()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, password);
        const QTemporaryDir folder;
        basTovarin::SetProgramFolder(folder.path());
        QVERIFY_THROWS_EXCEPTION(dbaccess::EngineError, basTovarin::ReadPassword());
        QFile file(folder.filePath(QStringLiteral("tovarin.dll")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        QCOMPARE(basTovarin::ReadPassword(), password);
    }

    void openDatabase_endsTheProgramOnFailure_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content"); // null: the file is missing
        QTest::addColumn<QString>("message");
        const QString failed = QStringLiteral("Failed to connect database!");
        const QString corrupted = QStringLiteral("Database is corrupted!");
        const QString key = QStringLiteral("tovarin.dll");
        const QString database = QStringLiteral("Tovarin.mdb");
        QTest::addRow("no key file") << key << QByteArray() << failed;
        QTest::addRow("empty key file") << key << QByteArray("") << failed;
        QTest::addRow("empty first line") << key << QByteArray("\nabc") << corrupted;
        QTest::addRow("wrong password") << key << QByteArray("abc") << failed;
        QTest::addRow("no database") << database << QByteArray() << failed;
        QTest::addRow("empty database") << database << QByteArray("") << failed;
        QTest::addRow("no database at all") << database << QByteArray(4096, 'x') << failed;
    }

    void openDatabase_endsTheProgramOnFailure()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        QFETCH(QString, message);
        const support::SampleDatabase sample(someEntries());
        QVERIFY(QFile::remove(sample.file(file)));
        if (!content.isNull()) {
            QFile out(sample.file(file));
            QVERIFY(out.open(QIODevice::WriteOnly) && out.write(content) == content.size());
        }
        BoxReader reader;
        QVERIFY_THROWS_EXCEPTION(ProgramEnd, basDatabase::OpenDatabase());
        QCOMPARE(reader.boxes(), std::vector {critical(message)});
    }

    void failingStatements_showTheEnginesText()
    {
        const support::SampleDatabase sample(someEntries());
        basDatabase::OpenDatabase();
        BoxReader reader;
        const Box unknown = critical(QStringLiteral("There is no table named \"tblnone\"."));
        QVERIFY(!basDatabase::OpenRecordset(QStringLiteral("select * from tblnone")));
        QCOMPARE(reader.take(), std::vector {unknown});
        QVERIFY(!basDatabase::ExecuteSQL(QStringLiteral("delete from tblnone")));
        QCOMPARE(reader.take(), std::vector {unknown});
        // The failed query, then the missing records.
        QCOMPARE(basDatabase::GetFieldValue(QStringLiteral("select * from tblnone")), QString());
        QCOMPARE(reader.take(),
                 (std::vector {unknown, critical(QStringLiteral("There are no records to read the "
                                                                "value from."))}));
    }

    void getFieldValue_trimsTheFirstField()
    {
        const support::SampleDatabase sample(someEntries());
        basDatabase::OpenDatabase();
        const auto value = [](const char *sql) {
            return basDatabase::GetFieldValue(QString::fromLatin1(sql));
        };
        QCOMPARE(value("select '  a b  ', 'c'"), QStringLiteral("a b"));
        QCOMPARE(value("select null"), QString());
        QCOMPARE(value("select name_desc from tblmaster where name_desc = 'none'"), QString());
        QCOMPARE(value("select count(*) from tblmaster"), QStringLiteral("2"));
        // Each statement is there for another connection as soon as it returns.
        QVERIFY(basDatabase::ExecuteSQL(QStringLiteral("update tblmaster set name_select = 'Y' ")));
        dbaccess::Connection other;
        other.open(basDatabase::ConnectionText(support::samplePassword()));
        QCOMPARE(other
                     .openRecordset(QStringLiteral("select count(*) from tblmaster where "
                                                   "name_select = 'Y'"))
                     .text(0),
                 QStringLiteral("2"));
    }

    void quoteSQL_doublesApostrophes()
    {
        const QString apostrophe = QStringLiteral("'");
        QCOMPARE(basDatabase::QuoteSQL(QStringLiteral("O'Neil's"), u'\'', apostrophe),
                 QStringLiteral("O''Neil''s"));
        QCOMPARE(basDatabase::QuoteSQL(QStringLiteral("plain"), u'\'', apostrophe),
                 QStringLiteral("plain"));
        QCOMPARE(basDatabase::QuoteSQL(QString(), u'\'', apostrophe), QString());
        QCOMPARE(basDatabase::QuoteSQL(QStringLiteral("a.b"), u'.', QStringLiteral("xy")),
                 QStringLiteral("axy.b"));
    }

    void fillComboBox_beginsWithAll()
    {
        const support::SampleDatabase sample(someEntries());
        basDatabase::OpenDatabase();
        QComboBox combo;
        const auto itemsOf = [&combo](const char *sql) {
            basDatabase::FillComboBox(QString::fromLatin1(sql), combo);
            QStringList items;
            for (int i = 0; i < combo.count(); ++i)
                items.append(combo.itemText(i));
            return items;
        };
        const QString all = QStringLiteral("All");
        BoxReader reader;
        QCOMPARE(itemsOf("select org_desc from tblorg order by org_desc "),
                 QStringList({all, QStringLiteral("Hebrew"), QStringLiteral("Irish")}));
        QCOMPARE(itemsOf("select ' a ' union all select null union all select 'b'"),
                 QStringList({all, QStringLiteral("a"), QStringLiteral("b")}));
        QCOMPARE(itemsOf("select org_desc from tblorg where org_id = '0'"), QStringList(all));
        QCOMPARE(reader.boxes(), noBoxes);
        QCOMPARE(itemsOf("select none from tblorg"), QStringList(all));
        QCOMPARE(reader.boxes().size(), std::size_t(1));
    }

    void versionLine_showsTheDateInWords()
    {
        const support::SampleDatabase sample(someEntries());
        basDatabase::OpenDatabase();
        QCOMPARE(basDatabase::VersionLine(), QStringLiteral("1.2 - 05 Mar 2026"));
        basDatabase::ExecuteSQL(QStringLiteral("update tblsetup set versiondate = null"));
        QCOMPARE(basDatabase::VersionLine(), QStringLiteral("1.2 - "));
    }

    void numericValue_readsTheLeadingNumber()
    {
        for (const auto &[text, number] :
             {std::pair("", 0), {"12", 12}, {" 7 ", 7}, {"12 names", 12}, {"x1", 0}, {"-3", -3}})
            QCOMPARE(basDatabase::NumericValue(QString::fromLatin1(text)), qint64(number));
    }
};

QTEST_MAIN(TestDatabase)
#include "test_database.moc"
