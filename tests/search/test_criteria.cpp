// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "search/criteria.h"
#include "search/pages.h"

#include <QTest>

#include <stdexcept>

using search::ListCriteria;
using search::ListField;
using search::NameRule;
using search::SearchCriteria;
using search::Sex;

Q_DECLARE_METATYPE(SearchCriteria)
Q_DECLARE_METATYPE(ListCriteria)

class TestCriteria : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void searchClause_isBuiltInOrder_data()
    {
        QTest::addColumn<SearchCriteria>("criteria");
        QTest::addColumn<QString>("clause");
        const auto row = [](const SearchCriteria &criteria, const char *clause) {
            QTest::addRow("%s", clause) << criteria << QString::fromUtf8(clause);
        };
        const QString name = QStringLiteral("An");
        row({.sex = Sex::Both}, "where name_mid = meaning_id and name_orgid = org_id ");
        row({.sex = Sex::Boy},
            "where name_sex = 'B' and name_mid = meaning_id and name_orgid = org_id ");
        row({.sex = Sex::Girl, .name = name, .nameRule = NameRule::Exact},
            "where name_sex = 'G' and name_desc = 'An' and name_mid = meaning_id and name_orgid = "
            "org_id ");
        row({.sex = Sex::Both, .name = name, .nameRule = NameRule::Exact},
            "where name_desc = 'An' and name_mid = meaning_id and name_orgid = org_id ");
        row({.sex = Sex::Both, .name = name, .nameRule = NameRule::StartsWith},
            "where name_desc like 'An%' and name_mid = meaning_id and name_orgid = org_id ");
        row({.sex = Sex::Boy, .name = name, .nameRule = NameRule::EndsWith},
            "where name_sex = 'B' and name_desc like '%An' and name_mid = meaning_id and "
            "name_orgid "
            "= org_id ");
        row({.sex = Sex::Both, .name = QStringLiteral(" O'N%_ "), .nameRule = NameRule::Contains},
            "where name_desc like '% O''N%_ %' and name_mid = meaning_id and name_orgid = org_id ");
        row({.sex = Sex::Both, .origin = QStringLiteral("All")},
            "where name_mid = meaning_id and name_orgid = org_id ");
        row({.sex = Sex::Both, .origin = QStringLiteral("Côte d'Or")},
            "where org_desc = 'Côte d''Or' and name_mid = meaning_id and name_orgid = org_id ");
        row({.sex = Sex::Both, .meaning = QStringLiteral("king's")},
            "where meaning_name like '%king''s%' and name_mid = meaning_id and name_orgid = "
            "org_id ");
        row({.sex = Sex::Girl,
             .name = name,
             .nameRule = NameRule::StartsWith,
             .origin = QStringLiteral("Irish"),
             .meaning = QStringLiteral("fire"),
             .tickedOnly = true},
            "where name_sex = 'G' and name_desc like 'An%' and org_desc = 'Irish' and meaning_name "
            "like '%fire%' and name_mid = meaning_id and name_orgid = org_id and name_select = "
            "'Y' ");
    }

    void searchClause_isBuiltInOrder()
    {
        QFETCH(SearchCriteria, criteria);
        QFETCH(QString, clause);
        QCOMPARE(search::criteriaClause(criteria), clause);
    }

    void listClause_beginsWithTheLetter_data()
    {
        QTest::addColumn<ListCriteria>("criteria");
        QTest::addColumn<QString>("clause");
        const auto row = [](const ListCriteria &criteria, const char *clause) {
            QTest::addRow("%s", clause) << criteria << QString::fromUtf8(clause);
        };
        row({ListField::Name, QStringLiteral("A"), Sex::Boy},
            "where name_desc like 'A%' and name_sex = 'B' and name_mid = meaning_id and name_orgid "
            "= "
            "org_id ");
        row({ListField::Meaning, QStringLiteral("B"), Sex::Girl},
            "where meaning_name like 'B%' and name_sex = 'G' and name_mid = meaning_id and "
            "name_orgid = org_id ");
        row({ListField::Origin, QStringLiteral("Z"), Sex::Both},
            "where org_desc like 'Z%' and name_mid = meaning_id and name_orgid = org_id ");
    }

    void listClause_beginsWithTheLetter()
    {
        QFETCH(ListCriteria, criteria);
        QFETCH(QString, clause);
        QCOMPARE(search::criteriaClause(criteria), clause);
    }

    void pageCount_roundsUp()
    {
        for (const auto &[names, pages] : {std::pair(0, 0),
                                           {1, 1},
                                           {99, 1},
                                           {100, 1},
                                           {101, 2},
                                           {200, 2},
                                           {201, 3},
                                           {3276700, 32767}})
            QCOMPARE(search::pageCount(names), std::int16_t(pages));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error, search::pageCount(3276701));
    }

    void rowNumber_goesOnFromPageToPage()
    {
        QCOMPARE(search::rowNumber(1, 1), std::int16_t(1));
        QCOMPARE(search::rowNumber(3, 1), std::int16_t(201));
        QCOMPARE(search::rowNumber(3, 100), std::int16_t(300));
        QCOMPARE(search::rowNumber(328, 67), std::int16_t(32767));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error, search::rowNumber(328, 68));
    }
};

QTEST_GUILESS_MAIN(TestCriteria)
#include "test_criteria.moc"
