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

#include <optional>

using support::Box;
using support::BoxReader;

namespace {

Box critical(const QString &text)
{
    return {QMessageBox::Critical, QStringLiteral("Error"), text};
}

} // namespace

class TestDatabase : public QObject
{
    Q_OBJECT

private:
    std::optional<support::SampleDatabase> m_sample;

private Q_SLOTS:
    void init()
    {
        m_sample.emplace(support::entries({"Anna|G|Hebrew|grace", "O'Neil|B|Irish|champion"}));
        const BoxReader reader; // a failure would wait for its box to be closed
        basDatabase::OpenDatabase();
    }
    void cleanup() { basDatabase::CloseDatabase(); }

    void decodeText_subtractsTheShiftedKey()
    {
        for (const auto &[encoded, key, decoded] :
             {std::tuple("any text", "", "any text"),
              {"", "KEY", ""},
              {"\x82\x83", "A", "AB"},       // one letter: the same code from every character
              {"\x82\x83", "a", "AB"},       // the key counts as upper case
              {"\x83\x82\x83", "AB", "AAA"}, // the first character meets the second letter
              {"A", "B", "\xff"},            // below zero it goes round
              {"\x9b\xc7\xc2\xad\xaf\xb6\xbe\x7a\x88", "MORVANTE", "Lullaby-9"}}) {
            const QString code = QString::fromLatin1(encoded);
            const QString text = QString::fromLatin1(decoded);
            QCOMPARE(basTovarin::DecodeText(code, QString::fromLatin1(key)), text);
            QCOMPARE(basTovarin::EncodeText(text, QString::fromLatin1(key)), code);
        }
    }

    void openDatabase_endsTheProgramOnFailure()
    {
        const QString opened;
        const QString failed = QStringLiteral("Failed to connect database!");
        const QString corrupted = QStringLiteral("Database is corrupted!");
        const QString key = QStringLiteral("tovarin.dll");
        const QString database = QStringLiteral("Tovarin.mdb");
        const QByteArray missing;
        const QByteArray encoded =
            basTovarin::EncodeText(support::samplePassword(), QStringLiteral("MORVANTE"))
                .toLatin1();
        for (const auto &[file, content, message] : {std::tuple(key, encoded, opened),
                                                     {key, encoded + "\r\nignored\r\n", opened},
                                                     {key, missing, failed},
                                                     {key, "", failed},
                                                     {key, "\r\n" + encoded, corrupted},
                                                     {key, "abc", failed},
                                                     {database, missing, failed},
                                                     {database, QByteArray(4096, 'x'), failed}}) {
            cleanup();
            init();
            cleanup();
            QVERIFY(QFile::remove(m_sample->file(file)));
            if (!content.isNull())
                support::writeFile(m_sample->file(file), content);
            BoxReader reader;
            if (message == opened) {
                QVERIFY2(basDatabase::OpenDatabase(), content.constData());
                continue;
            }
            QVERIFY_THROWS_EXCEPTION(ProgramEnd, basDatabase::OpenDatabase());
            QCOMPARE(reader.boxes(), std::vector {critical(message)});
        }
    }

    void failingStatements_showTheEnginesText()
    {
        BoxReader reader;
        QVERIFY(!basDatabase::OpenRecordset(QStringLiteral("select * from tblnone")));
        QVERIFY(!basDatabase::ExecuteSQL(QStringLiteral("delete from tblnone")));
        QCOMPARE(basDatabase::GetFieldValue(QStringLiteral("select * from tblnone")), QString());
        // Of the value, the failed query and then the missing records.
        const Box unknown = critical(QStringLiteral("There is no table named \"tblnone\"."));
        const Box none = critical(QStringLiteral("There are no records to read the value from."));
        QCOMPARE(reader.boxes(), (std::vector {unknown, unknown, unknown, none}));
    }

    void getFieldValue_trimsTheFirstField()
    {
        const auto value = [](const char *sql) {
            return basDatabase::GetFieldValue(QString::fromLatin1(sql));
        };
        QCOMPARE(value("select '  a b  ', 'c'"), QStringLiteral("a b"));
        QCOMPARE(value("select null"), QString());
        QCOMPARE(value("select name_desc from tblmaster where name_desc = 'none'"), QString());
        QCOMPARE(value("select count(*) from tblmaster"), QStringLiteral("2"));
        // Each statement is there for another connection as soon as it returns.
        QVERIFY(basDatabase::ExecuteSQL(QStringLiteral("delete from tblmaster ")));
        dbaccess::Connection other;
        other.open(basDatabase::ConnectionText(support::samplePassword()));
        QCOMPARE(other.openRecordset(QStringLiteral("select * from tblmaster")).rowCount(), 0);
    }

    void quoteSQL_doublesApostrophes()
    {
        QCOMPARE(basDatabase::QuoteSQL(QStringLiteral("O'Neil's")), QStringLiteral("O''Neil''s"));
        QCOMPARE(basDatabase::QuoteSQL(QStringLiteral("a.b"), u'.', QStringLiteral("xy")),
                 QStringLiteral("axy.b"));
    }

    void fillComboBox_beginsWithAll()
    {
        QComboBox combo;
        const auto itemsOf = [&combo](const char *sql) {
            basDatabase::FillComboBox(QString::fromLatin1(sql), combo);
            QString items;
            for (int i = 0; i < combo.count(); ++i)
                items += combo.itemText(i) % u'|';
            return items;
        };
        BoxReader reader;
        QCOMPARE(itemsOf("select org_desc from tblorg order by org_desc "),
                 QStringLiteral("All|Hebrew|Irish|"));
        QCOMPARE(itemsOf("select ' a ' union all select null union all select 'b'"),
                 QStringLiteral("All|a|b|"));
        QCOMPARE(reader.boxes(), std::vector<Box>());
        QCOMPARE(itemsOf("select none from tblorg"), QStringLiteral("All|"));
        QCOMPARE(reader.boxes().size(), std::size_t(1));
    }

    void versionLine_showsTheDateInWords()
    {
        QCOMPARE(basDatabase::VersionLine(QStringLiteral("1.2")),
                 QStringLiteral("1.2 - 05 Mar 2026"));
        basDatabase::ExecuteSQL(QStringLiteral("update tblsetup set versiondate = null"));
        QCOMPARE(basDatabase::VersionLine(QStringLiteral("1.2")), QStringLiteral("1.2 - "));
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
