// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/reports/reportfolder.h"

#include "db/basdatabase.h"
#include "platform/browser/browserpane.h"

#include <QFile>

namespace {

QString shortlisted(const QString &values)
{
    return u"insert into tblresult(name_desc, name_orgid, name_sex, name_meaning) values(" % values
           % u')';
}

QString ranked(const QString &values)
{
    return u"insert into tbltopn(t10_id, t10_name, t10_orgid, t10_sex, t10_mid) values(" % values
           % u')';
}

} // namespace

ReportFolder::ReportFolder(const QStringList &statements) : SampleDatabase({})
{
    browser::setPageFolder(folder());
    QFile::copy(QStringLiteral(DATA_FOLDER "/pages/report.css"),
                file(QStringLiteral("report.css")));
    QFile::copy(QStringLiteral(DATA_FOLDER "/pictures/logocust.jpg"),
                file(QStringLiteral("logocust.jpg")));
    basDatabase::OpenDatabase();
    for (const QString &statement : statements)
        basDatabase::ExecuteSQL(statement);
}

ReportFolder::~ReportFolder()
{
    basDatabase::CloseDatabase();
}

QString fullName(const QString &values)
{
    return u"insert into tblinitial values(" % values % u')';
}

QStringList sampleRows()
{
    return {shortlisted(QStringLiteral("'Zoë','Greek','G','life'")),
            shortlisted(QStringLiteral("'D''Arcy','Irish','B','dark'")),
            shortlisted(QStringLiteral("'Anna','Hebrew','G',null")),
            shortlisted(QStringLiteral("'Ben <i>x</i>','Hebrew','B',''")),
            ranked(QStringLiteral("'02','D''Arcy','Irish','B','dark'")),
            ranked(QStringLiteral("'01','Gone','Old Norse','B',null")),
            fullName(QStringLiteral("'Zoë','Ann','O''Neil','K.L.','ZAOK.L.'")),
            fullName(QStringLiteral("'Ben',null,'','<b>y</b>',null"))};
}
