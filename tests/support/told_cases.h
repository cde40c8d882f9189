#pragma once

// Cases that are told as text beside the tests: "= what it shows" begins one, its lines follow, "# " begins a remark.

#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

namespace support {

struct ToldCase {
    QString shows;
    QStringList lines;
    friend void PrintTo(const ToldCase& told, std::ostream* out) { *out << told.shows.toStdString(); }
};

inline QList<ToldCase> told_cases(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QList<ToldCase> cases;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
        if (line.startsWith(u"= "))
            cases << ToldCase{line.mid(2), {}};
        else if (!line.startsWith(u"# "))
            cases.back().lines << line;
    EXPECT_FALSE(cases.isEmpty()) << path.toStdString();
    return cases;
}

} // namespace support
