#pragma once
// GoogleTest printers so that failures show Qt values as text.

#include <QString>
#include <QStringList>
#include <ostream>

inline void PrintTo(const QString &s, std::ostream *os) {
    *os << '"' << s.toStdString() << '"';
}

inline void PrintTo(const QStringList &l, std::ostream *os) {
    *os << '{';
    for (qsizetype i = 0; i < l.size(); ++i) {
        if (i)
            *os << ", ";
        PrintTo(l.at(i), os);
    }
    *os << '}';
}
