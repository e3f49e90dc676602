#include "core/number_format.h"

#include <QStringList>
#include <cmath>
#include <cstdio>

namespace co {

namespace {

struct Section {
    QString prefix;
    QString suffix;
    int minInteger = 0;
    int minDecimals = 0;
    int maxDecimals = 0;
    bool thousands = false;
};

QStringList splitSections(const QString &mask) {
    QStringList out{QString()};
    QChar quote;
    for (QChar c : mask) {
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == u'\'' || c == u'"') {
            quote = c;
        } else if (c == u';') {
            out << QString();
            continue;
        }
        out.last() += c;
    }
    return out;
}

Section parseSection(const QString &text) {
    Section s;
    bool seenDigit = false;
    bool seenPoint = false;
    bool seenZero = false;
    int lastZeroAfterPoint = 0;
    int placesAfterPoint = 0;
    auto literal = [&](QChar c) { (seenDigit || seenPoint ? s.suffix : s.prefix) += c; };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'\'' || c == u'"') {
            qsizetype end = text.indexOf(c, i + 1);
            if (end < 0)
                end = text.size();
            for (qsizetype j = i + 1; j < end; ++j)
                literal(text.at(j));
            i = end;
        } else if (c == u'0' || c == u'#') {
            seenDigit = true;
            if (seenPoint) {
                ++placesAfterPoint;
                if (c == u'0')
                    lastZeroAfterPoint = placesAfterPoint;
            } else {
                seenZero = seenZero || c == u'0';
                if (seenZero)
                    ++s.minInteger;
            }
        } else if (c == u'.' && !seenPoint) {
            seenPoint = true;
        } else if (c == u',') {
            if (!seenPoint)
                s.thousands = true;
        } else {
            literal(c);
        }
    }
    s.minDecimals = lastZeroAfterPoint;
    s.maxDecimals = placesAfterPoint;
    return s;
}

// Decimal digits of |value| split at the point, from 15 significant figures.
void decimalDigits(double value, QString &integer, QString &fraction) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.14e", std::fabs(value));
    const QString text = QString::fromLatin1(buffer);
    const qsizetype e = text.indexOf(u'e');
    QString digits = text.left(e);
    digits.remove(u'.');
    const int exponent = text.mid(e + 1).toInt();
    if (exponent >= 0) {
        if (digits.size() <= exponent + 1)
            digits += QString(exponent + 1 - digits.size(), u'0');
        integer = digits.left(exponent + 1);
        fraction = digits.mid(exponent + 1);
    } else {
        integer.clear();
        fraction = QString(-exponent - 1, u'0') + digits;
    }
}

// Adds one unit in the last place of a digit string; true when it overflowed.
bool increment(QString &digits) {
    for (qsizetype i = digits.size() - 1; i >= 0; --i) {
        if (digits[i] == u'9') {
            digits[i] = u'0';
        } else {
            digits[i] = QChar(digits[i].unicode() + 1);
            return false;
        }
    }
    return true;
}

struct Rounded {
    QString integer;
    QString fraction;
    bool isZero() const {
        for (QChar c : integer + fraction)
            if (c != u'0')
                return false;
        return true;
    }
};

Rounded roundTo(double value, int decimals) {
    Rounded r;
    decimalDigits(value, r.integer, r.fraction);
    if (r.fraction.size() > decimals) {
        const bool up = r.fraction.at(decimals) >= u'5';
        r.fraction.truncate(decimals);
        if (up) {
            QString all = r.integer + r.fraction;
            if (increment(all))
                all.prepend(u'1');
            r.integer = all.left(all.size() - decimals);
            r.fraction = all.right(decimals);
        }
    }
    return r;
}

QString render(const Section &s, const Rounded &r, bool minus) {
    QString integer = r.integer;
    while (!integer.isEmpty() && integer.at(0) == u'0')
        integer.remove(0, 1);
    if (integer.size() < s.minInteger)
        integer.prepend(QString(s.minInteger - integer.size(), u'0'));
    if (s.thousands)
        for (qsizetype i = integer.size() - 3; i > 0; i -= 3)
            integer.insert(i, u'.');
    QString fraction = r.fraction;
    while (fraction.size() > s.minDecimals && fraction.endsWith(u'0'))
        fraction.chop(1);
    QString out = s.prefix;
    if (minus)
        out += u'-';
    out += integer;
    if (!fraction.isEmpty())
        out += u',' + fraction;
    return out + s.suffix;
}

QString generalForm(double value) {
    return QString::number(value, 'g', 15).replace(u'.', u',').toUpper();
}

} // namespace

QString FormatFloat(const QString &mascara, double valor) {
    if (std::isnan(valor))
        return QStringLiteral("NAN");
    if (std::isinf(valor))
        return valor < 0 ? QStringLiteral("-INF") : QStringLiteral("INF");
    if (mascara.isEmpty())
        return generalForm(valor);

    const QStringList sections = splitSections(mascara);
    const Section positive = parseSection(sections.at(0));
    const bool hasNegative = sections.size() > 1 && !sections.at(1).isEmpty();
    const bool hasZero = sections.size() > 2 && !sections.at(2).isEmpty();
    const Section &chosen = valor < 0 && hasNegative ? parseSection(sections.at(1)) : positive;

    const Rounded rounded = roundTo(valor, chosen.maxDecimals);
    if (rounded.isZero() && hasZero) {
        const Section zero = parseSection(sections.at(2));
        return render(zero, roundTo(0, zero.maxDecimals), false);
    }
    const bool minus = valor < 0 && !hasNegative && !rounded.isZero();
    return render(chosen, rounded, minus);
}

} // namespace co
