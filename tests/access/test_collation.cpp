// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/collation.h"
#include "platform/access/likepattern.h"
#include "tools/dictionary.h"

#include <QSet>
#include <QTest>

#include <unicode/tblcoll.h>

#include <memory>
#include <random>

namespace {

int signOf(int number)
{
    return (number > 0) - (number < 0);
}

/// ICU's root collation at secondary strength, told of the letters that we, for the sake of plain
/// keyboards, order as an accented form of a plain one.
class Oracle
{
public:
    Oracle()
    {
        UErrorCode error = U_ZERO_ERROR;
        const icu::UnicodeString rules =
            icu::UnicodeString(u"&b<<ɓ &d<<ð<<ɗ<<ɖ &e<<ə<<ɛ<<ǝ &f<<ƒ &g<<ǥ<<ɣ &i<<ı<<ɨ<<ɩ &k<<ƙ "
                               u"&n<<ŋ<<ɲ &o<<ɔ &t<<ŧ &th<<þ &u<<ʉ<<ʊ &v<<ʋ &y<<ƴ &z<<ʒ "
                               u"&''<<‘<<’<<ʻ<<ʼ");
        m_collator = std::make_unique<icu::RuleBasedCollator>(rules, error);
        m_collator->setStrength(icu::Collator::SECONDARY);
        m_collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, error);
        Q_ASSERT(U_SUCCESS(error));
    }

    int compare(const QString &a, const QString &b) const
    {
        UErrorCode error = U_ZERO_ERROR;
        return m_collator->compare(toIcu(a), toIcu(b), error);
    }

private:
    static icu::UnicodeString toIcu(const QString &text)
    {
        return {reinterpret_cast<const char16_t *>(text.utf16()),
                static_cast<int32_t>(text.size())};
    }

    std::unique_ptr<icu::RuleBasedCollator> m_collator;
};

QStringList dictionaryTexts()
{
    QSet<QString> texts;
    for (const dictionary::Entry &entry :
         dictionary::readFolder(QStringLiteral(DICTIONARY_FOLDER)).entries)
        texts << entry.name << entry.origin << entry.meaning;
    return {texts.cbegin(), texts.cend()};
}

/// The characters of a text by their numbers, for those that print badly.
QString codesOf(const QString &text)
{
    QString codes;
    for (const QChar c : text)
        codes += QStringLiteral(" %1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    return codes;
}

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

class TestCollation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dictionaryTexts_standInTheOrderOfIcu()
    {
        const Oracle oracle;
        QStringList texts = dictionaryTexts();
        QVERIFY(texts.size() > 1500);
        std::ranges::sort(texts, [](const QString &a, const QString &b) {
            return dbaccess::compareTexts(a, b) < 0;
        });
        std::mt19937 random(20261122);
        std::uniform_int_distribution<qsizetype> any(0, texts.size() - 1);
        const auto check = [&](const QString &a, const QString &b) {
            const int ours = signOf(dbaccess::compareTexts(a, b));
            if (ours != oracle.compare(a, b))
                QFAIL(qPrintable(QStringLiteral("\"%1\" / \"%2\": %3").arg(a, b).arg(ours)));
        };
        for (qsizetype i = 1; i < texts.size(); ++i)
            check(texts[i - 1], texts[i]);
        for (int i = 0; i < 50000; ++i)
            check(texts[any(random)], texts[any(random)]);
    }

    void randomTexts_compareAsIcuDoes()
    {
        const Oracle oracle;
        const QList<QString> letters = {
            QStringLiteral("a"),    QStringLiteral("E"),    QStringLiteral("é"),
            QStringLiteral("Ê"),    QStringLiteral("e"),    QStringLiteral("ệ"),
            QStringLiteral("æ"),    QStringLiteral("Ø"),    QStringLiteral("o"),
            QStringLiteral("ß"),    QStringLiteral("s"),    QStringLiteral("ı"),
            QStringLiteral("İ"),    QStringLiteral("i"),    QStringLiteral("ł"),
            QStringLiteral("L"),    QStringLiteral("1"),    QStringLiteral(" "),
            QStringLiteral("-"),    QStringLiteral("'"),    QStringLiteral("’"),
            QStringLiteral(";"),    QStringLiteral("."),    QString(QChar(0x0301)),
            QString(QChar(0x0323)), QString(QChar(0x0302)), QString(QChar(0x0001)),
            QStringLiteral("d"),    QStringLiteral("ð"),    QStringLiteral("đ")};
        std::mt19937 random(7);
        std::uniform_int_distribution<qsizetype> anyLetter(0, letters.size() - 1);
        std::uniform_int_distribution<int> anyLength(0, 5);
        const auto text = [&] {
            QString result;
            for (int i = anyLength(random); i > 0; --i)
                result += letters[anyLetter(random)];
            return result;
        };
        for (int i = 0; i < 200000; ++i) {
            const QString a = text();
            const QString b = text();
            const int ours = signOf(dbaccess::compareTexts(a, b));
            if (ours != oracle.compare(a, b))
                QFAIL(qPrintable(
                    QStringLiteral("%1 / %2: %3").arg(codesOf(a), codesOf(b)).arg(ours)));
        }
    }

    void order_isLettersThenAccents()
    {
        // Each text sorts after the one before it; "=" before a text: with it.
        const QStringList order = {QString(),
                                   QStringLiteral("-"),
                                   QStringLiteral("7"),
                                   QStringLiteral("A"),
                                   QStringLiteral("=a"),
                                   QStringLiteral("á"),
                                   QStringLiteral("=Á"),
                                   QStringLiteral("aa"),
                                   QStringLiteral("Æ"),
                                   QStringLiteral("af"),
                                   QStringLiteral("elodie"),
                                   QStringLiteral("Élodie"),
                                   QStringLiteral("Eloise"),
                                   QStringLiteral("Isik"),
                                   QStringLiteral("Işık"),
                                   QStringLiteral("O'Neil"),
                                   QStringLiteral("Oa"),
                                   QStringLiteral("Zoe"),
                                   QStringLiteral("Zoë")};
        for (qsizetype i = 1; i < order.size(); ++i) {
            const bool equal = order[i].startsWith(u'=');
            const QString before =
                order[i - 1].startsWith(u'=') ? order[i - 1].sliced(1) : order[i - 1];
            const QString text = equal ? order[i].sliced(1) : order[i];
            QVERIFY2(signOf(dbaccess::compareTexts(before, text)) == (equal ? 0 : -1),
                     qPrintable(text));
            QVERIFY2(signOf(dbaccess::compareTexts(text, before)) == (equal ? 0 : 1),
                     qPrintable(text));
        }
    }

    void malformedUtf8_isReadWithinItsBounds()
    {
        for (const char *bytes :
             {"\xff", "\xc3", "a\xe2\x82", "\xf0\x9f\x98", "\xc0\xaf", "\x80z"}) {
            const std::string_view text(bytes);
            QCOMPARE(dbaccess::compareTexts(text, text), 0);
            QVERIFY(dbaccess::compareTexts(text, "a") != 0);
            QVERIFY(dbaccess::LikePattern("%").matches(text));
        }
    }

    void firstPlainLetter_isWhereANameIsListed()
    {
        QCOMPARE(dbaccess::firstPlainLetter(QStringLiteral("Élodie")), QChar(u'E'));
        QCOMPARE(dbaccess::firstPlainLetter(QStringLiteral("ørjan")), QChar(u'O'));
        QCOMPARE(dbaccess::firstPlainLetter(QStringLiteral("Æsir")), QChar(u'A'));
        QCOMPARE(dbaccess::firstPlainLetter(QStringLiteral("Þóra")), QChar(u'T'));
        QVERIFY(dbaccess::firstPlainLetter(QStringLiteral("'Iolani")).isNull());
        QVERIFY(dbaccess::firstPlainLetter(QString()).isNull());
    }

    void like_matches_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("matches");
        const auto row = [](const char *pattern, const char *text, bool matches) {
            QTest::addRow("%s like %s", text, pattern)
                << QString::fromUtf8(pattern) << QString::fromUtf8(text) << matches;
        };
        row("", "", true);
        row("", "a", false);
        row("%", "", true);
        row("_", "", false);
        row("anna", "ANNA", true);
        row("ann", "Anna", false);
        row("elo%", "Élodie", true);
        row("éLO%", "Élodie", true);
        row("é%", "Elodie", false);
        row("é%", "Ève", false);
        row("%die", "Élodie", true);
        row("%die", "Élodied", false);
        row("%o%i%", "Élodie", true);
        row("%ab%abc", "ababab abc", true);
        row("%ab%abc", "abcab", false);
        row("_lodie", "Élodie", true);
        row("__odie", "Élodie", true);
        row("_", "É", true);
        row("_", "Æ", true); // one character, though two letters
        row("a%", "Æthel", true);
        row("aethel", "Æthel", true);
        row("æthel", "Aethel", false);
        row("isik", "Işık", true);
        row("lukasz", "Łukasz", true);
        row("thora", "Þóra", true);
        row("strasse", "Straße", true);
        row("o'neil", "O’Neil", true);
        row("é", "e\u0301", true);
        row("a%%b_", "aXXbY", true);
    }

    void like_matches()
    {
        QFETCH(QString, pattern);
        QFETCH(QString, text);
        QFETCH(bool, matches);
        const QByteArray patternBytes = pattern.toUtf8();
        const QByteArray textBytes = text.toUtf8();
        QCOMPARE(dbaccess::LikePattern(viewOf(patternBytes)).matches(viewOf(textBytes)), matches);
    }
};

QTEST_GUILESS_MAIN(TestCollation)
#include "test_collation.moc"
