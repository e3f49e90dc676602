#include "core/amount_words.h"

#include "core/currency.h"
#include "core/number_format.h"

#include <cmath>
#include <cstdio>

namespace co {

namespace {

enum class Group { Millones, Miles, Unidades };

const char *const kHundredsMasculine[] = {"",
                                          "",
                                          "DOSCIENTOS",
                                          "TRESCIENTOS",
                                          "CUATROCIENTOS",
                                          "QUINIENTOS",
                                          "SEISCIENTOS",
                                          "SETECIENTOS",
                                          "OCHOCIENTOS",
                                          "NOVECIENTOS"};
const char *const kHundredsFeminine[] = {"",
                                         "",
                                         "DOSCIENTAS",
                                         "TRESCIENTAS",
                                         "CUATROCIENTAS",
                                         "QUINIENTAS",
                                         "SEISCIENTAS",
                                         "SETECIENTAS",
                                         "OCHOCIENTAS",
                                         "NOVECIENTAS"};
const char *const kTeens[] = {"DIEZ",   "ONCE",      "DOCE",       "TRECE",     "CATORCE",
                              "QUINCE", "DIECISEIS", "DIECISIETE", "DIECIOCHO", "DIECINUEVE"};
const char *const kTwenties[] = {
    "VEINTE",      "",           "VEINTIDOS",   "VEINTITRES", "VEINTICUATRO",
    "VEINTICINCO", "VEINTISEIS", "VEINTISIETE", "VEINTIOCHO", "VEINTINUEVE"};
const char *const kTens[] = {"",          "",        "",        "TREINTA", "CUARENTA",
                             "CINCUENTA", "SESENTA", "SETENTA", "OCHENTA", "NOVENTA"};
const char *const kUnits[] = {"",      "",     "DOS",   "TRES", "CUATRO",
                              "CINCO", "SEIS", "SIETE", "OCHO", "NUEVE"};

QString groupText(const QString &digits, Group group) {
    const int h = digits.at(0).digitValue();
    const int t = digits.at(1).digitValue();
    const int u = digits.at(2).digitValue();
    const bool masculine = group == Group::Millones;
    QString out;
    if (h == 1)
        out += QLatin1String(t == 0 && u == 0 ? "CIEN " : "CIENTO ");
    else if (h > 1)
        out += QLatin1String(masculine ? kHundredsMasculine[h] : kHundredsFeminine[h]) + u' ';

    if (t == 1)
        out += QLatin1String(kTeens[u]) + u' ';
    else if (t == 2 && u == 1)
        out += QLatin1String(masculine ? "VEINTIUN " : "VEINTIUNA ");
    else if (t == 2)
        out += QLatin1String(kTwenties[u]) + u' ';
    else if (t > 2)
        out += QLatin1String(kTens[t]) + u' ';

    const bool loneThousand = group == Group::Miles && h == 0 && t == 0 && u == 1;
    if (u != 0 && t != 1 && t != 2 && !loneThousand) {
        if (t != 0)
            out += QLatin1String("Y ");
        if (u == 1)
            out += QLatin1String(masculine ? "UN " : "UNA ");
        else
            out += QLatin1String(kUnits[u]) + u' ';
    }
    return out;
}

// Steps 3 to 5: a nine-digit text read as millions, thousands and units.
QString groupsText(const QString &nineDigits) {
    QString out;
    const QString millions = nineDigits.mid(0, 3);
    const QString thousands = nineDigits.mid(3, 3);
    const QString units = nineDigits.mid(6, 3);
    if (millions != QLatin1String("000"))
        out += groupText(millions, Group::Millones) +
               QLatin1String(millions == QLatin1String("001") ? "MILLON " : "MILLONES ");
    if (thousands != QLatin1String("000"))
        out += groupText(thousands, Group::Miles) + QLatin1String("MIL ");
    if (units != QLatin1String("000"))
        out += groupText(units, Group::Unidades);
    return out;
}

QString nineDigits(long double whole) {
    char buffer[6000];
    std::snprintf(buffer, sizeof buffer, "%09.0Lf", whole);
    return QString::fromLatin1(buffer);
}

struct Parts {
    long double whole = 0;    // signed, no fraction
    long double fraction = 0; // of the magnitude
};

Parts split(double importe) {
    Parts p;
    if (!std::isfinite(importe))
        return p;
    p.fraction = std::fabs(std::modf(static_cast<long double>(importe), &p.whole));
    return p;
}

QString masculine(QString text) {
    return text.replace(QLatin1String("CIENTAS"), QLatin1String("CIENTOS"))
        .replace(QLatin1String("UNA"), QLatin1String("UN"));
}

enum class Gender { Masculino, Femenino, Indefinido };

} // namespace

QString NumeroEnLetra(double importe) {
    const Parts p = split(importe);
    QString out;
    if (p.whole < 0)
        out += QLatin1String("MENOS ");
    const QString words = groupsText(nineDigits(std::fabs(p.whole)));
    out += words.isEmpty() ? QStringLiteral("CER0 ") : words;
    if (p.fraction != 0) {
        out += QLatin1String("CON ");
        const QString text = FormatFloat(QStringLiteral("0.00"), static_cast<double>(p.fraction));
        const QString decimals = text.mid(text.indexOf(u',') + 1);
        out += groupsText(decimals.rightJustified(9, u'0'));
    }
    return out;
}

QString ImporteEnLetra(int codigoMoneda, double importe, const CurrencyValues &monedas) {
    const int codigo = codigoMoneda != 0 ? codigoMoneda : monedas.CodigoMonedaBase;
    const Gender gender = codigo == monedas.CodigoMonedaEuro       ? Gender::Masculino
                          : codigo == monedas.CodigoMonedaNacional ? Gender::Femenino
                                                                   : Gender::Indefinido;
    QString descripcion;
    if (gender == Gender::Indefinido) {
        const Moneda *moneda = monedas.find(codigo);
        descripcion = moneda                               ? moneda->Descripcion
                      : codigo == monedas.CodigoMonedaBase ? monedas.DescripcionMoneda
                                                           : QString();
        descripcion = descripcion.toUpper();
    }

    const Parts p = split(importe);
    const QString text = NumeroEnLetra(importe);
    QString out;
    if (p.fraction == 0) {
        switch (gender) {
        case Gender::Femenino:
            out = text + QLatin1String("PESETAS");
            break;
        case Gender::Masculino:
            out = masculine(text) + QLatin1String("EUROS");
            break;
        case Gender::Indefinido:
            out = masculine(text) + descripcion;
            break;
        }
    } else {
        const qsizetype cut = text.indexOf(QLatin1String(" CON "));
        QString whole = text.left(cut);
        const QString decimal = masculine(text.mid(cut + 5));
        switch (gender) {
        case Gender::Femenino:
            out = whole + QLatin1String(" PESETAS CON ") + decimal + QLatin1String("CENTIMOS");
            break;
        case Gender::Masculino:
            out =
                masculine(whole) + QLatin1String(" EUROS CON ") + decimal + QLatin1String("CENTS");
            break;
        case Gender::Indefinido:
            out = masculine(whole) + QLatin1String(" CON ") + decimal + descripcion;
            break;
        }
    }
    if (std::fabs(p.whole) == 1)
        out.replace(QLatin1String("PESETAS"), QLatin1String("PESETA"))
            .replace(QLatin1String("EUROS"), QLatin1String("EURO"));
    if (p.fraction < 0.015L)
        out.replace(QLatin1String("CENTIMOS"), QLatin1String("CENTIMO"))
            .replace(QLatin1String("CENTS"), QLatin1String("CENT"));
    return out;
}

} // namespace co
