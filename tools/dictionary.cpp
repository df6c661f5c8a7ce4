// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tools/dictionary.h"

#include "platform/access/collation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>
#include <stdexcept>

namespace dictionary {

namespace {

constexpr QStringView originHeader = u"# Origin: ";

int compareEntries(const Entry &a, const Entry &b)
{
    const int names = dbaccess::compareTexts(a.name, b.name);
    return names != 0 ? names : a.sex.unicode() - b.sex.unicode();
}

bool holdsUnprintable(const QString &text)
{
    return std::ranges::any_of(text, [](QChar c) {
        return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format;
    });
}

/// What is wrong with a text that people will read; empty if nothing is.
QString textProblem(const QString &what, const QString &text, int longest)
{
    if (text.trimmed().isEmpty())
        return QStringLiteral("the %1 is empty").arg(what);
    if (text != text.trimmed())
        return QStringLiteral("the %1 \"%2\" has blanks around it").arg(what, text);
    if (text.size() > longest)
        return QStringLiteral("the %1 \"%2\" is longer than %3 characters")
            .arg(what, text)
            .arg(longest);
    if (holdsUnprintable(text))
        return QStringLiteral("the %1 \"%2\" holds an invisible character").arg(what, text);
    if (text != text.normalized(QString::NormalizationForm_C))
        return QStringLiteral("the %1 \"%2\" is not in Unicode's composed form").arg(what, text);
    return {};
}

/// Words that sell a name instead of explaining it; none is the sense of a name in any language.
const QRegularExpression &fluff()
{
    static const QRegularExpression words(
        QStringLiteral("\\b(?:adorable|amazing|awesome|beautiful princess|brave warrior|cute|"
                       "gift from heaven|heavenly gift|like an angel|little princess|magical|"
                       "perfect one)\\b"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return words;
}

/// What is wrong with the way a name is written; empty if nothing is.
QString spellingProblem(const Entry &entry)
{
    if (entry.name.contains(u'\''))
        return QStringLiteral("the name \"%1\" is written with ’ or ʻ").arg(entry.name);
    if (!entry.name.front().isUpper())
        return QStringLiteral("the name \"%1\" begins with no capital").arg(entry.name);
    return {};
}

/// What is wrong with the way a meaning is put; empty if nothing is.
QString styleProblem(const QString &meaning)
{
    const qsizetype words = meaning.split(u' ', Qt::SkipEmptyParts).size();
    if (words < fewestWords || words > mostWords)
        return QStringLiteral("the meaning \"%1\" takes %3 to %4 words, not %2")
            .arg(meaning)
            .arg(words)
            .arg(fewestWords)
            .arg(mostWords);
    if (meaning.endsWith(u'.'))
        return QStringLiteral("the meaning \"%1\" ends with a full stop").arg(meaning);
    if (const QRegularExpressionMatch praise = fluff().match(meaning); praise.hasMatch())
        return QStringLiteral("the meaning \"%1\" praises: \"%2\"").arg(meaning, praise.captured());
    return {};
}

class FileReader
{
public:
    FileReader(const QByteArray &content, QString fileName) : m_fileName(std::move(fileName))
    {
        QList<QByteArray> lines = content.split('\n');
        if (lines.last().isEmpty())
            lines.removeLast();
        for (const QByteArray &line : lines) {
            ++m_line;
            readLine(line);
        }
        if (m_line == 0)
            report(QStringLiteral("the file is empty"));
    }

    Source take() { return std::move(m_source); }

private:
    void report(const QString &problem)
    {
        m_source.problems.append(
            QStringLiteral("%1:%2: %3").arg(m_fileName).arg(qMax(m_line, 1)).arg(problem));
    }

    void readLine(const QByteArray &bytes)
    {
        QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString line = decode(bytes);
        if (decode.hasError())
            report(QStringLiteral("the line is not UTF-8"));
        else if (line.endsWith(u'\r'))
            report(QStringLiteral("the line ends with a carriage return"));
        else if (m_line == 1)
            readHeader(line);
        else if (!line.startsWith(u'#'))
            readEntry(line);
    }

    void readHeader(const QString &line)
    {
        if (!line.startsWith(originHeader)) {
            report(QStringLiteral("the first line has to be \"# Origin: \" and the origin's name"));
            return;
        }
        m_origin = line.sliced(originHeader.size());
        if (const QString problem = textProblem(QStringLiteral("origin"), m_origin, longestOrigin);
            !problem.isEmpty())
            report(problem);
    }

    void readEntry(const QString &line)
    {
        const QStringList fields = line.split(u'\t');
        if (fields.size() != 3) {
            report(fields.size() > 3
                       ? QStringLiteral("a stray tab: an entry is name, sex and meaning")
                       : QStringLiteral("an entry is name, sex and meaning with tabs between"));
            return;
        }
        const Entry entry {fields[0], fields[1].isEmpty() ? QChar() : fields[1][0], m_origin,
                           fields[2]};
        if (const QString problem = entryProblem(entry, fields[1]); !problem.isEmpty())
            report(problem);
        m_source.entries.push_back(entry);
    }

    QString entryProblem(const Entry &entry, const QString &sex) const
    {
        if (QString problem = textProblem(QStringLiteral("name"), entry.name, longestName);
            !problem.isEmpty())
            return problem;
        if (dbaccess::firstPlainLetter(entry.name).isNull())
            return QStringLiteral("the name \"%1\" begins with no letter from A to Z")
                .arg(entry.name);
        if (sex != u"B" && sex != u"G")
            return QStringLiteral("the sex \"%1\" is neither B nor G").arg(sex);
        if (QString problem = textProblem(QStringLiteral("meaning"), entry.meaning, longestMeaning);
            !problem.isEmpty())
            return problem;
        if (QString problem = spellingProblem(entry); !problem.isEmpty())
            return problem;
        if (QString problem = styleProblem(entry.meaning); !problem.isEmpty())
            return problem;
        if (m_source.entries.empty())
            return {};
        const int order = compareEntries(m_source.entries.back(), entry);
        if (order == 0)
            return QStringLiteral("\"%1\" stands twice for this sex").arg(entry.name);
        if (order > 0)
            return QStringLiteral("\"%1\" is out of order (\"mkdb sort\" mends it)")
                .arg(entry.name);
        return {};
    }

    QString m_fileName;
    QString m_origin;
    int m_line = 0;
    Source m_source;
};

} // namespace

Source readText(const QByteArray &content, const QString &fileName)
{
    return FileReader(content, fileName).take();
}

Source readFile(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, {QStringLiteral("%1:1: can't be read: %2").arg(name, file.errorString())}};
    return readText(file.readAll(), name);
}

Source readFolder(const QString &folder)
{
    const QDir dir(folder);
    Source all;
    QHash<QString, QString> fileOfOrigin;
    for (const QString &name : dir.entryList({QStringLiteral("*.tsv")}, QDir::Files, QDir::Name)) {
        Source source = readFile(dir.filePath(name));
        all.problems += source.problems;
        if (source.entries.empty())
            continue;
        // Within a file the order shows duplicates; two files of one origin would hide them.
        const QString origin = source.entries.front().origin;
        if (fileOfOrigin.contains(origin))
            all.problems.append(QStringLiteral("%1:1: the origin \"%2\" has a file already: %3")
                                    .arg(name, origin, fileOfOrigin.value(origin)));
        fileOfOrigin.insert(origin, name);
        std::ranges::move(source.entries, std::back_inserter(all.entries));
    }
    if (all.entries.empty() && all.problems.isEmpty())
        all.problems.append(QStringLiteral("%1: there are no dictionary files").arg(folder));
    return all;
}

QByteArray sortedText(const QByteArray &content)
{
    // Lines are moved as they are, so that one that is not UTF-8 is not spoilt further.
    QByteArrayList lines = content.split('\n');
    lines.removeAll(QByteArray());
    const auto entries = std::stable_partition(
        lines.begin(), lines.end(), [](const QByteArray &line) { return line.startsWith('#'); });
    std::stable_sort(entries, lines.end(), [](const QByteArray &a, const QByteArray &b) {
        const QString lineA = QString::fromUtf8(a);
        const QString lineB = QString::fromUtf8(b);
        const int names =
            dbaccess::compareTexts(lineA.section(u'\t', 0, 0), lineB.section(u'\t', 0, 0));
        return names != 0 ? names < 0 : lineA.section(u'\t', 1, 1) < lineB.section(u'\t', 1, 1);
    });
    return lines.join('\n') + '\n';
}

bool sortFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(qPrintable(QString(path % u": " % file.errorString())));
    const QByteArray before = file.readAll();
    file.close();
    const QByteArray after = sortedText(before);
    if (after == before)
        return false;
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(after) != after.size() || !out.commit())
        throw std::runtime_error(qPrintable(QString(path % u": " % out.errorString())));
    return true;
}

} // namespace dictionary
