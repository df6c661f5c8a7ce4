// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"

#include "db/bastovarin.h"
#include "db/programend.h"
#include "platform/access/connection.h"
#include "platform/access/engineerror.h"
#include "platform/dialogs/messagebox.h"

#include <QComboBox>
#include <QDate>
#include <QLocale>

#include <memory>

namespace basDatabase {

namespace {

std::unique_ptr<dbaccess::Connection> cnDatabase;
QString strConnect;
QString strPassword;
QString lastErrorText;
std::function<void(const QString &)> statementObserver;

dbaccess::Connection &connection()
{
    if (!cnDatabase) {
        cnDatabase = std::make_unique<dbaccess::Connection>();
        cnDatabase->setStatementObserver(statementObserver);
    }
    return *cnDatabase;
}

void showError(const QString &text)
{
    dialogs::showMessage(text, dialogs::Icon::Critical, QStringLiteral("Error"));
}

[[noreturn]] void endProgram(const QString &text)
{
    CloseDatabase();
    showError(text);
    throw ProgramEnd {};
}

} // namespace

QString ConnectionText(const QString &inpPassword)
{
    return u"DBQ=" % basTovarin::ProgramFolder()
           % u"\\Tovarin.mdb;DRIVER={Microsoft Access Driver (*.mdb)};UID=admin;PWD=" % inpPassword
           % u';';
}

bool OpenDatabase()
{
    try {
        strPassword = basTovarin::ReadPassword();
        if (strPassword == basTovarin::noPassword)
            endProgram(QStringLiteral("Database is corrupted!"));
        strConnect = ConnectionText(strPassword);
        connection().open(strConnect);
        connection().makePrivate(QStringLiteral("tbltemp"));
        return true;
    } catch (const dbaccess::EngineError &) {
        endProgram(QStringLiteral("Failed to connect database!"));
    }
}

void CloseDatabase()
{
    cnDatabase.reset();
}

std::optional<dbaccess::Recordset> OpenRecordset(const QString &inpSQL)
{
    try {
        return connection().openRecordset(inpSQL);
    } catch (const dbaccess::EngineError &error) {
        showError(error.message());
        return std::nullopt;
    }
}

QString GetFieldValue(const QString &inpSQL)
{
    const std::optional<dbaccess::Recordset> recordset = OpenRecordset(inpSQL);
    if (!recordset) {
        // The second of two boxes: the first told why the query failed.
        showError(QStringLiteral("There are no records to read the value from."));
        return {};
    }
    return recordset->isAtEnd() ? QString() : recordset->text(0).trimmed();
}

bool ExecuteSQL(const QString &inpSQL)
{
    try {
        connection().execute(inpSQL);
        return true;
    } catch (const dbaccess::EngineError &error) {
        lastErrorText = QString::number(error.number()) % u" : " % error.message();
        showError(error.message());
        return false;
    }
}

bool RewriteTable(const QString &inpTable, const QStringList &inpStatements)
{
    if (!ExecuteSQL(u"delete from " % inpTable))
        return false;
    bool haveAllSucceeded = true;
    for (const QString &statement : inpStatements)
        haveAllSucceeded = ExecuteSQL(statement) && haveAllSucceeded;
    return haveAllSucceeded;
}

QString LastErrorText()
{
    return lastErrorText;
}

QString QuoteSQL(const QString &inpText, QChar inpFind, const QString &inpInsert)
{
    QString quoted = inpText;
    return quoted.replace(inpFind, QString(inpInsert % inpFind));
}

QString QuoteSQL(const QString &inpText)
{
    return QuoteSQL(inpText, u'\'', QStringLiteral("'"));
}

void FillComboBox(const QString &inpSQL, QComboBox &inpCombo)
{
    inpCombo.clear();
    inpCombo.addItem(QStringLiteral("All"));
    std::optional<dbaccess::Recordset> recordset = OpenRecordset(inpSQL);
    for (; recordset && !recordset->isAtEnd(); recordset->moveNext()) {
        if (const dbaccess::FieldValue &value = recordset->field(qsizetype(0)))
            inpCombo.addItem(value->trimmed());
    }
}

qint64 NumericValue(const QString &inpText)
{
    const QString trimmed = inpText.trimmed();
    qsizetype end = trimmed.startsWith(u'-') || trimmed.startsWith(u'+') ? 1 : 0;
    while (end < trimmed.size() && trimmed[end] >= u'0' && trimmed[end] <= u'9')
        ++end;
    return trimmed.first(end).toLongLong();
}

QString Setting(QStringView inpColumn)
{
    return GetFieldValue(u"select " % inpColumn % u" from tblsetup ");
}

QString VersionLine(const QString &inpVersion)
{
    const QDate date = QDate::fromString(Setting(u"versiondate"), Qt::ISODate);
    // The months are English like the rest of the program, whatever the system's language.
    return inpVersion % u" - " % QLocale::c().toString(date, QStringLiteral("dd MMM yyyy"));
}

void WatchStatements(std::function<void(const QString &)> inpObserver)
{
    statementObserver = std::move(inpObserver);
    if (cnDatabase)
        cnDatabase->setStatementObserver(statementObserver);
}

} // namespace basDatabase
