// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/reporthtml.h"

namespace reports {

namespace {

/// Keeps the text from being selected. The second half is for browsers that have a sidebar object.
const QString selectionBlocker = QStringLiteral(
    "function disabletext(e){return false } \r"
    "function reEnable(){return true }\r"
    "//if the browser is IE4+\r"
    "document.onselectstart=new Function ('return false')\r"
    "//if the browser is NS6 \r"
    "if (window.sidebar){ Document.onmousedown = disabletext;Document.onclick = reEnable;}");

const QString printCommand = QStringLiteral("javascript:window.print()");

QString beginning(const QString &logo, const QString &heading)
{
    return u"<script language='JavaScript1.2'>" % selectionBlocker
           % u"</script><html><body><center><img src='" % logo % u"'><br><h2>" % heading
           % u"</h2><br>";
}

QString end()
{
    return u"</table></center><br><center><input type=button onclick='" % printCommand
           % u"' value='Print'><br><br>Made with Tovarin, the names dictionary for expectant "
             u"parents.</center></body></html>";
}

/// A row of a table, its number, counted from 1, before the other cells.
QString tableRow(qsizetype number, const QStringList &cells)
{
    return u"<tr><td>" % QString::number(number) % u"</td><td>"
           % cells.join(QStringLiteral("</td><td>")) % u"</td></tr>";
}

/// A table of names that is not closed yet.
QString nameTable(std::span<const ReportName> names)
{
    QString html = QStringLiteral(
        "<table border=1 cellpadding=0 cellspacing=0><tr bgcolor='Silver'><td>No.</td><td>Name</td>"
        "<td>Origin</td><td>Boy/Girl</td><td>Meaning</td></tr>");
    qsizetype number = 0;
    for (const ReportName &name : names)
        html += tableRow(++number, {name.name, name.origin, name.sex, name.meaning});
    return html;
}

} // namespace

QStringList reportScripts()
{
    return {selectionBlocker, printCommand};
}

QString topNReport(const QString &logo, const QString &topN, std::span<const ReportName> ranked,
                   std::span<const ReportName> others)
{
    return beginning(logo, QString(u"Your Top " % topN % u" Selected Tovarin Names"))
           % nameTable(ranked) % u"</table><br><h2>Your Selected Tovarin Names</h2><br>"
           % nameTable(others) % end();
}

QString initialReport(const QString &logo, std::span<const ReportFullName> names)
{
    QString html = beginning(logo, QStringLiteral("Your Tovarin Full Name and Initials"));
    html += u"<table border=0 cellpadding=1 cellspacing=1><tr bgcolor='Silver'><td>No.</td>"
            u"<td>First</td><td>Middle</td><td>Last</td><td>Other</td><td>Initial</td></tr>";
    qsizetype number = 0;
    for (const ReportFullName &name : names) {
        QStringList cells;
        for (const std::optional<QString> &part : name)
            cells.append(part.value_or(QStringLiteral("&nbsp;")));
        html += tableRow(++number, cells);
    }
    return html % end();
}

} // namespace reports
