// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/reportdata.h"

#include "db/basdatabase.h"
#include "platform/dialogs/messagebox.h"

namespace reports {

namespace {

using basDatabase::QuoteSQL;

QString rankOf(const QString &name, const QString &sex, const QString &origin)
{
    return basDatabase::GetFieldValue(
        u"select t10_id, t10_name, t10_sex, t10_orgid from tbltopn where t10_name = '"
        % QuoteSQL(name).trimmed() % u"' and t10_sex = '" % QuoteSQL(sex).trimmed()
        % u"' and t10_orgid = '" % QuoteSQL(origin).trimmed() % u"' ");
}

/// Takes the texts of name, origin and sex with their apostrophes doubled.
void insertTempTopN(const QStringList &entry, const QString &number, QChar mark)
{
    basDatabase::ExecuteSQL(
        u"insert into TEMPTOPN(name_desc, name_orgid, name_sex, name_mid, name_select) values('"
        % entry.join(QStringLiteral("', '")) % u"', '" % number % u"', '" % mark % u"') ");
}

/// Reads the names of a query, whose columns of name, origin, sex and meaning are given.
std::vector<ReportName> readNames(const QString &query, const std::array<QStringView, 4> &columns)
{
    std::vector<ReportName> names;
    for (auto rows = basDatabase::OpenRecordset(query); rows && !rows->isAtEnd(); rows->moveNext())
        names.push_back({rows->text(columns[0]), rows->text(columns[1]), rows->text(columns[2]),
                         rows->text(columns[3])});
    return names;
}

} // namespace

bool FillTempTopN(const QString &inpTopN)
{
    if (!basDatabase::ExecuteSQL(QStringLiteral("delete from TEMPTOPN"))) {
        for (const QString &text : {QString(u"Failed to print top " % inpTopN % u" report!"),
                                    basDatabase::LastErrorText()})
            dialogs::showMessage(text, dialogs::Icon::Critical, QStringLiteral("Error"));
        return false;
    }
    int counter = 0;
    for (auto names = basDatabase::OpenRecordset(QStringLiteral("select * from tblresult "));
         names && !names->isAtEnd(); names->moveNext()) {
        const QString name = names->text(u"name_desc");
        const QString origin = names->text(u"name_orgid");
        const QString sex = names->text(u"name_sex");
        const QString rank = rankOf(name, sex, origin);
        QStringList entry {QuoteSQL(name), QuoteSQL(origin), QuoteSQL(sex)};
        if (rank.isEmpty()) {
            for (QString &text : entry)
                text = text.trimmed();
            insertTempTopN(entry, QString::number(++counter), u'Y');
        } else {
            insertTempTopN(entry, rank, u'T');
        }
    }
    return true;
}

std::vector<ReportName> rankedNames()
{
    return readNames(QStringLiteral("SELECT * FROM tblTopN ORDER BY T10_ID"),
                     {u"T10_Name", u"T10_OrgID", u"T10_Sex", u"T10_MID"});
}

std::vector<ReportName> unrankedNames()
{
    return readNames(
        QStringLiteral("SELECT * FROM TEMPTOPN A, tblResult B WHERE A.Name_Desc = B.Name_Desc AND "
                       "A.Name_OrgId = B.Name_OrgId And A.Name_Sex = B.Name_Sex AND "
                       "A.NAME_SELECT ='Y' ORDER BY A.NAME_DESC "),
        {u"Name_Desc", u"Name_OrgId", u"Name_Sex", u"Name_Meaning"});
}

std::vector<ReportFullName> savedFullNames()
{
    std::vector<ReportFullName> names;
    for (auto rows = basDatabase::OpenRecordset(QStringLiteral("SELECT * FROM tblInitial"));
         rows && !rows->isAtEnd(); rows->moveNext())
        names.push_back({rows->field(u"Init_First"), rows->field(u"Init_Second"),
                         rows->field(u"Init_Third"), rows->field(u"Init_Other"),
                         rows->field(u"Init_Desc")});
    return names;
}

} // namespace reports
