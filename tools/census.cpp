// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tools/census.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <utility>

namespace dictionary {

namespace {

/// How many missing names of each sex the report lists.
constexpr int listedMissing = 40;

bool ownsUpToNotKnowing(const QString &meaning)
{
    return meaning.contains(u"uncertain");
}

QStringList overused(const QMap<QString, int> &uses, int most, const QString &where)
{
    QStringList problems;
    for (auto it = uses.begin(); it != uses.end(); ++it) {
        if (it.value() > most)
            problems.append(QStringLiteral("%1: %2 entries have the meaning \"%3\"")
                                .arg(where)
                                .arg(it.value())
                                .arg(it.key()));
    }
    return problems;
}

/// Hands over the fields of each line that is no comment. The reader returns false for bad ones.
void readLines(const QString &path, qsizetype fieldCount, const QString &form,
               const std::function<bool(const QStringList &)> &reader)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(qPrintable(QString(path % u": " % file.errorString())));
    int number = 0;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QStringList fields = line.split(u'\t');
        if (fields.size() != fieldCount || !reader(fields))
            throw std::runtime_error(qPrintable(QStringLiteral("%1:%2: a line is %3")
                                                    .arg(QFileInfo(path).fileName())
                                                    .arg(number)
                                                    .arg(form)));
    }
}

QString grouped(qint64 number)
{
    return QLocale(QLocale::English).toString(number);
}

/// Rounded down, so that nothing missing is made whole.
QString percent(double share)
{
    return QString::number(static_cast<int>(share * 1000) / 10.0, 'f', 1) % u" %";
}

QString missingNames(const Coverage &covered, QChar sex)
{
    QStringList names;
    qint64 count = 0;
    for (const GivenName &name : covered.missing) {
        if (name.sex == sex && ++count <= listedMissing)
            names.append(QStringLiteral("%1 (%2)").arg(name.name, grouped(name.births)));
    }
    const QString what = sex == u'B' ? QStringLiteral("boys") : QStringLiteral("girls");
    if (names.isEmpty())
        return QStringLiteral("No name of %1 is missing.\n").arg(what);
    return QStringLiteral("The commonest of %1 names of %2 that are still missing, with births: "
                          "%3.\n")
        .arg(count)
        .arg(what, names.join(QStringLiteral(", ")));
}

QString originTable(const QMap<QString, BySex> &counts, const QMap<QString, Review> &reviews)
{
    QString table = QStringLiteral("| Origin | Boys | Girls | Read | Changed | Dropped |\n"
                                   "|---|---:|---:|---:|---:|---:|\n");
    BySex sum;
    Review reviewed;
    const auto addRow = [&table](const QString &name, const BySex &count, const Review &review) {
        table += QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |\n")
                     .arg(name, grouped(count.boys), grouped(count.girls), grouped(review.read),
                          grouped(review.changed), grouped(review.dropped));
    };
    for (auto it = counts.begin(); it != counts.end(); ++it) {
        const Review review = reviews.value(it.key());
        addRow(it.key(), it.value(), review);
        sum.boys += it->boys;
        sum.girls += it->girls;
        reviewed.read += review.read;
        reviewed.changed += review.changed;
        reviewed.dropped += review.dropped;
    }
    addRow(QStringLiteral("All"), sum, reviewed);
    return table;
}

} // namespace

QMap<QString, BySex> countByOrigin(const std::vector<Entry> &entries)
{
    QMap<QString, BySex> counts;
    for (const Entry &entry : entries)
        ++counts[entry.origin].of(entry.sex);
    return counts;
}

QStringList wholeProblems(const std::vector<Entry> &entries)
{
    QStringList problems;
    const QMap<QString, BySex> counts = countByOrigin(entries);
    for (auto it = counts.begin(); it != counts.end(); ++it) {
        if (std::min(it->boys, it->girls) < fewestOfASex)
            problems.append(QStringLiteral("%1: only %2 boys and %3 girls; each origin has %4 of "
                                           "either")
                                .arg(it.key())
                                .arg(it->boys)
                                .arg(it->girls)
                                .arg(fewestOfASex));
    }

    QMap<QString, int> uses;
    QMap<QString, QMap<QString, int>> usesByOrigin;
    for (const Entry &entry : entries) {
        ++uses[entry.meaning];
        if (!ownsUpToNotKnowing(entry.meaning))
            ++usesByOrigin[entry.origin][entry.meaning];
    }
    problems += overused(uses, mostOfAMeaning, QStringLiteral("all origins"));
    for (auto it = usesByOrigin.begin(); it != usesByOrigin.end(); ++it)
        problems += overused(it.value(), mostOfAMeaningInAnOrigin, it.key());
    return problems;
}

std::vector<GivenName> readGivenNames(const QString &path)
{
    std::vector<GivenName> names;
    readLines(path, 3, QStringLiteral("name, sex and births"), [&names](const QStringList &fields) {
        names.push_back(
            {fields[0], fields[1].isEmpty() ? QChar() : fields[1][0], fields[2].toLongLong()});
        return (fields[1] == u"B" || fields[1] == u"G") && names.back().births > 0;
    });
    return names;
}

double Coverage::share(QChar sex) const
{
    return births.of(sex) == 0
               ? 1
               : static_cast<double>(found.of(sex)) / static_cast<double>(births.of(sex));
}

Coverage coverage(const std::vector<Entry> &entries, const std::vector<GivenName> &given)
{
    // Registries drop inner capitals: their Mckenzie is McKenzie.
    QSet<std::pair<QString, QChar>> known;
    for (const Entry &entry : entries)
        known.insert({entry.name.toCaseFolded(), entry.sex});

    Coverage covered;
    for (const GivenName &name : given) {
        covered.births.of(name.sex) += name.births;
        if (known.contains({name.name.toCaseFolded(), name.sex}))
            covered.found.of(name.sex) += name.births;
        else
            covered.missing.push_back(name);
    }
    std::ranges::stable_sort(covered.missing, std::greater {}, &GivenName::births);
    return covered;
}

QMap<QString, Review> readReviews(const QString &path)
{
    QMap<QString, Review> reviews;
    readLines(path, 4, QStringLiteral("origin, read, changed and dropped"),
              [&reviews](const QStringList &fields) {
                  Review &review = reviews[fields[0]];
                  review = {fields[1].toInt(), fields[2].toInt(), fields[3].toInt()};
                  return review.read > 0;
              });
    return reviews;
}

QString report(const std::vector<Entry> &entries, const std::vector<GivenName> &given,
               const QMap<QString, Review> &reviews)
{
    const QMap<QString, BySex> counts = countByOrigin(entries);
    const Coverage covered = coverage(entries, given);
    return QStringLiteral("%1 entries of %2 origins.\n\n"
                          "Of the boys counted in `data/popular/united-states-2011-2020.tsv` %3, "
                          "and of the girls %4, find their name in their spelling.\n\n")
               .arg(grouped(static_cast<qint64>(entries.size())))
               .arg(counts.size())
               .arg(percent(covered.share(u'B')), percent(covered.share(u'G')))
           % missingNames(covered, u'B') % u'\n' % missingNames(covered, u'G') % u'\n'
           % originTable(counts, reviews);
}

std::vector<Entry> sample(const std::vector<Entry> &entries, std::size_t count, quint32 seed)
{
    std::vector<Entry> drawn = entries;
    count = std::min(count, drawn.size());
    // The standard library's way of drawing differs between systems; Qt's generator doesn't.
    QRandomGenerator random(seed);
    for (std::size_t i = 0; i < count; ++i) {
        const auto left = static_cast<quint32>(drawn.size() - i);
        std::swap(drawn[i], drawn[i + random.bounded(left)]);
    }
    drawn.resize(count);
    return drawn;
}

} // namespace dictionary
