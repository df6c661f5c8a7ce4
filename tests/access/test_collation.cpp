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

/// ICU's root collation at secondary strength, told of the letters that we, for the sake of plain
/// keyboards, order as an accented form of a plain one.
std::unique_ptr<icu::Collator> icuCollator()
{
    UErrorCode error = U_ZERO_ERROR;
    auto collator = std::make_unique<icu::RuleBasedCollator>(
        u"&b<<ɓ<<<Ɓ &d<<ð<<<Ð<<ɗ<<<Ɗ<<ɖ<<<Ɖ &e<<ə<<<Ə<<ɛ<<<Ɛ<<ǝ<<<Ǝ &f<<ƒ<<<Ƒ &g<<ǥ<<<Ǥ<<ɣ<<<Ɣ "
        u"&i<<ı<<ɨ<<<Ɨ<<ɩ<<<Ɩ &k<<ƙ<<<Ƙ &n<<ŋ<<<Ŋ<<ɲ<<<Ɲ &o<<ɔ<<<Ɔ &t<<ŧ<<<Ŧ &th<<þ<<<Þ "
        u"&u<<ʉ<<<Ʉ<<ʊ<<<Ʊ &v<<ʋ<<<Ʋ &y<<ƴ<<<Ƴ &z<<ʒ<<<Ʒ &''<<‘<<’<<ʻ<<ʼ",
        error);
    collator->setStrength(icu::Collator::SECONDARY);
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, error);
    Q_ASSERT(U_SUCCESS(error));
    return collator;
}

QStringList dictionaryTexts()
{
    QSet<QString> texts;
    for (const dictionary::Entry &entry :
         dictionary::readFolder(QStringLiteral(DICTIONARY_FOLDER)).entries)
        texts << entry.name << entry.origin << entry.meaning;
    return {texts.cbegin(), texts.cend()};
}

} // namespace

class TestCollation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_standInTheOrderOfIcu()
    {
        const auto collator = icuCollator();
        std::mt19937 random(20261122);
        const auto any = [&random](const auto &from) {
            return from[qsizetype(random() % std::size_t(from.size()))];
        };
        const auto check = [&collator](const QString &a, const QString &b) {
            const int ours = dbaccess::compareTexts(a, b);
            UErrorCode error = U_ZERO_ERROR;
            if ((ours > 0) - (ours < 0)
                != collator->compareUTF8(a.toStdString(), b.toStdString(), error))
                QFAIL(QTest::toString(QString(a % u" / " % b)));
        };

        QStringList texts = dictionaryTexts();
        QVERIFY(texts.size() > 1500);
        std::ranges::sort(texts, [](const QString &a, const QString &b) {
            return dbaccess::compareTexts(a, b) < 0;
        });
        for (qsizetype i = 1; i < texts.size(); ++i)
            check(texts[i - 1], texts[i]);
        for (int i = 0; i < 50000; ++i)
            check(any(texts), any(texts));

        const QString letters =
            QStringLiteral("aEéÊeệæØoßsıİiłL1 -'’;.\u0301\u0323\u0302\u0001dðÐđəƏþÞŋŊɔƆ");
        const auto anyText = [&] {
            QString text;
            for (auto length = random() % 6; length > 0; --length)
                text += any(letters);
            return text;
        };
        for (int i = 0; i < 200000; ++i)
            check(anyText(), anyText());
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
        QString letters;
        for (const char *name : {"Élodie", "ørjan", "Æsir", "Þóra", "'Iolani", ""}) {
            const QChar letter = dbaccess::firstPlainLetter(QString::fromUtf8(name));
            letters += letter.isNull() ? u'-' : letter;
        }
        QCOMPARE(letters, QStringLiteral("EOAT--"));
    }

    void like_matchesLettersAndTheirAccents()
    {
        const auto matches = [](const char *patternAndText) {
            const std::string_view row(patternAndText);
            const std::size_t bar = row.find('|');
            return dbaccess::LikePattern(row.substr(0, bar)).matches(row.substr(bar + 1));
        };
        // "Æ" is one character, though two letters.
        for (const char *row : {"|",
                                "%|",
                                "anna|ANNA",
                                "elo%|Élodie",
                                "éLO%|Élodie",
                                "%die|Élodie",
                                "%o%i%|Élodie",
                                "_lodie|Élodie",
                                "__odie|Élodie",
                                "%ab%abc|ababab abc",
                                "a%%b_|aXXbY",
                                "_|É",
                                "_|Æ",
                                "a%|Æthel",
                                "aethel|Æthel",
                                "isik|Işık",
                                "lukasz|Łukasz",
                                "thora|Þóra",
                                "strasse|Straße",
                                "o'neil|O’Neil",
                                "é|e\u0301"})
            QVERIFY2(matches(row), row);
        for (const char *row : {"|a", "_|", "ann|Anna", "é%|Elodie", "é%|Ève", "%die|Élodied",
                                "%ab%abc|abcab", "æthel|Aethel"})
            QVERIFY2(!matches(row), row);
    }
};

QTEST_GUILESS_MAIN(TestCollation)
#include "test_collation.moc"
