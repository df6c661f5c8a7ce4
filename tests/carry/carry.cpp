// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// carry show FOLDER       prints the dictionary as the search pages through it, with its ticks, and
//                         the shortlist
// carry tick FOLDER NAME  ticks a name and saves it as the shortlist
//
// The same program on two systems tells whether a database means the same to both.

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "tests/support/sampledatabase.h"

#include <QApplication>

#include <cstdio>

namespace {

QString sqlText(const QString &text)
{
    return u'\'' % basDatabase::QuoteSQL(text) % u'\'';
}

bool run(const QStringList &arguments)
{
    basTovarin::SetProgramFolder(arguments.value(2));
    if (!basDatabase::OpenDatabase())
        return false;
    if (arguments.value(1) == u"show") {
        for (const char *query :
             {"select name_desc, name_sex, name_orgid, name_select from tblmaster order by "
              "name_desc, name_sex, name_orgid",
              "select name_desc from tblmaster where name_desc like 'é%' order by name_desc",
              "select * from tblresult"}) {
            const QStringList rows = support::table(QLatin1String(query));
            std::fputs(QString(rows.join(u'\n') % u'\n').toUtf8().constData(), stdout);
        }
        return true;
    }
    const QString name = sqlText(arguments.value(3));
    return basDatabase::ExecuteSQL(u"update tblmaster set name_select = 'Y' where name_desc = "
                                   % name)
           && basDatabase::ExecuteSQL(u"insert into tblresult(name_desc) values(" % name % u')');
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const bool isDone = run(QCoreApplication::arguments());
    basDatabase::CloseDatabase();
    return isDone ? 0 : 1;
}
