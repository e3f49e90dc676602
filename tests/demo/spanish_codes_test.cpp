// Tax codes and bank accounts: the check routines against published accounts
// and hand-worked codes, and the generators against the checks.
#include "demo/bank_codes.h"
#include "demo/random_source.h"
#include "demo/tax_codes.h"
#include "support/gtest_qt_printing.h"

#include <QFile>
#include <QTextStream>
#include <gtest/gtest.h>

namespace co::demo {
namespace {

struct Cuenta {
    QString iban, entidad, sucursal, dc, numero;
    bool cccValida;
};

QList<Cuenta> cuentasPublicadas() {
    QList<Cuenta> out;
    QFile f(QStringLiteral(CO_BANK_TESTDATA));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly | QIODevice::Text));
    QTextStream in(&f);
    while (!in.atEnd()) {
        const QString linea = in.readLine().trimmed();
        if (linea.isEmpty() || linea.startsWith(u'#'))
            continue;
        const QStringList campos = linea.split(u';');
        const QStringList ccc = campos.at(1).split(u'|');
        out << Cuenta{campos.at(0), ccc.at(0), ccc.at(1),
                      ccc.at(2),    ccc.at(3), campos.at(2) == u"SI"};
    }
    return out;
}

TEST(CuentasBancarias, PublishedAccountsPassOrFailAsListed) {
    const QList<Cuenta> cuentas = cuentasPublicadas();
    ASSERT_GE(cuentas.size(), 20);
    int invalidas = 0;
    for (const Cuenta &c : cuentas) {
        SCOPED_TRACE(c.iban.toStdString());
        // Every listed IBAN holds its own checksum, whatever its separators.
        EXPECT_TRUE(IBANValido(c.iban));
        EXPECT_EQ(CCCValido(c.entidad, c.sucursal, c.dc, c.numero), c.cccValida);
        if (c.cccValida) {
            EXPECT_EQ(DigitosControlCCC(c.entidad, c.sucursal, c.numero), c.dc);
            EXPECT_EQ(IBANDeCCC(c.entidad + c.sucursal + c.dc + c.numero),
                      IBANSinSeparadores(c.iban));
        } else {
            ++invalidas;
        }
    }
    EXPECT_EQ(invalidas, 2);
}

TEST(CuentasBancarias, DamagedOrMalformedAccountsFail) {
    EXPECT_FALSE(IBANValido(QStringLiteral("ES9121000418450200051333")));     // last digit changed
    EXPECT_FALSE(IBANValido(QStringLiteral("ES91 2100 0418 4502 0005 133"))); // one digit short
    EXPECT_FALSE(IBANValido(QStringLiteral("ESAA21000418450200051332"))); // letters as check digits
    EXPECT_FALSE(IBANValido(QString()));
    EXPECT_FALSE(IBANValido(QStringLiteral("ES91-2100-0418-45O2-0005-1332"))); // letter O for zero
    EXPECT_FALSE(CCCValido(QStringLiteral("2100"), QStringLiteral("0418"), QStringLiteral("54"),
                           QStringLiteral("0200051332"))); // check digits swapped
    EXPECT_FALSE(CCCValido(QStringLiteral("210"), QStringLiteral("0418"), QStringLiteral("45"),
                           QStringLiteral("0200051332")));
    EXPECT_TRUE(DigitosControlCCC(QStringLiteral("21A0"), QStringLiteral("0418"),
                                  QStringLiteral("0200051332"))
                    .isEmpty());
}

TEST(CuentasBancarias, CheckDigitTenAndElevenBecomeOneAndZero) {
    // 11 - (sum mod 11) gives 10 or 11 for these accounts: the digit is 1 or 0.
    EXPECT_EQ(DigitosControlCCC(QStringLiteral("0000"), QStringLiteral("0000"),
                                QStringLiteral("0000000000")),
              QStringLiteral("00"));
    EXPECT_EQ(DigitosControlCCC(QStringLiteral("0000"), QStringLiteral("0000"),
                                QStringLiteral("0000000001")),
              QStringLiteral("05"));
    EXPECT_EQ(DigitosControlCCC(QStringLiteral("0000"), QStringLiteral("0000"),
                                QStringLiteral("1000000000")),
              QStringLiteral("01"));
}

TEST(CodigosFiscales, KnownCodes) {
    EXPECT_EQ(NIF(12345678), QStringLiteral("12345678Z"));
    EXPECT_EQ(NIF(0), QStringLiteral("00000000T"));
    EXPECT_TRUE(NIFValido(QStringLiteral("12345678z")));
    EXPECT_TRUE(NIFValido(QStringLiteral("X1234567L"))); // NIE: X stands for 0
    EXPECT_FALSE(NIFValido(QStringLiteral("12345678A")));
    EXPECT_FALSE(NIFValido(QStringLiteral("1234567Z")));
    EXPECT_EQ(CIF(u'B', 1234567), QStringLiteral("B12345674"));
    EXPECT_TRUE(CIFValido(QStringLiteral("B-12345674")));
    EXPECT_FALSE(CIFValido(QStringLiteral("B12345675")));
    // Letter organisations take the letter of the digit; these take only it.
    EXPECT_EQ(CIF(u'P', 2806500),
              QStringLiteral("P2806500") + ControlCIF(u'P', QStringLiteral("2806500")));
    EXPECT_TRUE(ControlCIF(u'P', QStringLiteral("2806500")).isLetter());
    EXPECT_FALSE(CIFValido(QStringLiteral("Q2826000H").left(8) + u'9'));
    EXPECT_TRUE(CIFValido(QStringLiteral("Q2826000H")));
    // Others accept the digit or its letter.
    EXPECT_TRUE(CIFValido(QStringLiteral("F12345674")));
    EXPECT_TRUE(CIFValido(QStringLiteral("F1234567D")));
    EXPECT_FALSE(CIFValido(QStringLiteral("A1234567D")));
    EXPECT_FALSE(CIFValido(QStringLiteral("I12345674"))); // no such organisation letter
    EXPECT_FALSE(CodigoFiscalValido(QString()));
}

TEST(CodigosFiscales, GeneratedCodesPassTheirChecks) {
    FuenteAleatoria r(42);
    for (int i = 0; i < 2000; ++i) {
        const int numero = r.Entero(0, 9999999);
        for (const QChar letra : QStringLiteral("ABCDEFGHJNPQRSUVW"))
            ASSERT_TRUE(CIFValido(CIF(letra, numero))) << CIF(letra, numero).toStdString();
        ASSERT_TRUE(NIFValido(NIF(r.Entero(0, 99999999))));
        QString ccc;
        for (int d = 0; d < 10; ++d)
            ccc += QChar(u'0' + r.Entero(0, 9));
        const QString dc = DigitosControlCCC(QStringLiteral("2100"), QStringLiteral("0418"), ccc);
        ASSERT_TRUE(CCCValido(QStringLiteral("2100"), QStringLiteral("0418"), dc, ccc));
        ASSERT_TRUE(IBANValido(IBANDeCCC(QStringLiteral("21000418") + dc + ccc)));
    }
}

TEST(FuenteAleatoria, FixedBySeedAndWithinRange) {
    FuenteAleatoria a(7), b(7), c(8);
    bool distinta = false;
    for (int i = 0; i < 1000; ++i) {
        const int x = a.Entero(-3, 3);
        ASSERT_EQ(x, b.Entero(-3, 3));
        ASSERT_GE(x, -3);
        ASSERT_LE(x, 3);
        const double y = a.Real(1.5, 2.5);
        ASSERT_EQ(y, b.Real(1.5, 2.5));
        ASSERT_GE(y, 1.5);
        ASSERT_LT(y, 2.5);
        const std::uint64_t x1 = a.Siguiente(), x2 = b.Siguiente();
        ASSERT_EQ(x1, x2);
        distinta = distinta || c.Siguiente() != x1;
    }
    EXPECT_TRUE(distinta);
    // The first value of seed 0 of splitmix64, as published with the algorithm.
    EXPECT_EQ(FuenteAleatoria(0).Siguiente(), 0xE220A8397B1DCDAFULL);
    EXPECT_EQ(FuenteAleatoria(5).Entero(4, 4), 4);
    EXPECT_EQ(FuenteAleatoria(5).Entero(4, 1), 4);
}

} // namespace
} // namespace co::demo
