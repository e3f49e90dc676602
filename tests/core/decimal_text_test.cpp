// Decimal texts are read one way everywhere, and result texts are tested for a
// failure one way: the rules on their own, then the statement layer that uses
// them on both back-ends.
#include "core/number_text.h"
#include "core/result_text.h"
#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

std::optional<double> leer(const char *text, PuntoSinComa punto = PuntoSinComa::Decimal) {
    return LeerDecimal(QString::fromUtf8(text), punto);
}

TEST(LeerDecimal, CommaIsTheDecimalSignAndPointsBeforeItMarkThousands) {
    EXPECT_EQ(leer("1.234,56"), 1234.56);
    EXPECT_EQ(leer("12,5"), 12.5);
    EXPECT_EQ(leer("1.000.000,0"), 1000000.0);
    EXPECT_EQ(leer(",5"), 0.5);
    EXPECT_EQ(leer("0"), 0.0);
    EXPECT_EQ(leer("1,5E3"), 1500.0);
}

TEST(LeerDecimal, SignsAndBlanks) {
    EXPECT_EQ(leer("-12,5"), -12.5);
    EXPECT_EQ(leer("-1.234,5"), -1234.5);
    EXPECT_EQ(leer("+7"), 7.0);
    EXPECT_EQ(leer("   3,25\t"), 3.25);
    EXPECT_EQ(leer(" -0,5 "), -0.5);
}

TEST(LeerDecimal, APointWithoutACommaIsReadAsAsked) {
    // The keypad types a point as the decimal sign.
    EXPECT_EQ(leer("12.5"), 12.5);
    EXPECT_EQ(leer("1.234"), 1.234);
    // The system writes thousands with points.
    EXPECT_EQ(leer("1.234", PuntoSinComa::Millares), 1234.0);
    EXPECT_EQ(leer("1.234.567", PuntoSinComa::Millares), 1234567.0);
    // With a comma the points are thousands marks whatever is asked.
    EXPECT_EQ(leer("1.234,5", PuntoSinComa::Millares), 1234.5);
    EXPECT_EQ(leer("1.234,5", PuntoSinComa::Decimal), 1234.5);
    // Two decimal points cannot be one number.
    EXPECT_FALSE(leer("1.234.567"));
}

TEST(LeerDecimal, EmptyBlankAndBadTextsAreNoNumber) {
    for (const char *bad : {"", "   ", "abc", "12a", "1,2,3", "--1", "-", ",", "1 2", "1e", "1e400",
                            "inf", "nan", "1,5 €"}) {
        SCOPED_TRACE(bad);
        EXPECT_FALSE(leer(bad));
        EXPECT_FALSE(leer(bad, PuntoSinComa::Millares));
    }
}

TEST(ResultadoError, OnlyATextThatStartsWithTheWordIsAFailure) {
    EXPECT_TRUE(EsResultadoError(QStringLiteral("Error.")));
    EXPECT_TRUE(EsResultadoError(QStringView(kFalloSentencia).toString() + QStringLiteral("x")));
    EXPECT_FALSE(EsResultadoError(QString()));
    EXPECT_FALSE(EsResultadoError(QStringLiteral("error. en minúsculas")));
    EXPECT_FALSE(EsResultadoError(QStringLiteral("Error")));
    EXPECT_FALSE(EsResultadoError(QStringLiteral("1|Error. escrito en una columna")));
    EXPECT_FALSE(EsResultadoError(QStringLiteral(" Error.")));
}

TEST(ResultadoError, MotivoDropsOnlyTheLeadOfAStatementThatCouldNotRun) {
    EXPECT_EQ(MotivoResultado(QStringView(kFalloSentencia).toString() +
                              QStringLiteral("Table does not exist")),
              QStringLiteral("Table does not exist"));
    const QString lectura =
        QStringLiteral("Error. ¡Se ha producido un error en la Sentencia SQL!. Motivo: x");
    EXPECT_EQ(MotivoResultado(lectura), lectura);
    EXPECT_EQ(MotivoResultado(QStringLiteral("5")), QStringLiteral("5"));
}

using test::LayerTest;

class DecimalesEnSentencias : public LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral("CREATE TABLE IMPORTE (Codigo INTEGER NOT NULL, Valor DOUBLE PRECISION, "
                          "Nota VARCHAR(40), PRIMARY KEY (Codigo))"));
        ok(QStringLiteral("INSERT INTO IMPORTE VALUES ('1', '1234.56', 'Error. de un usuario')"));
        ok(QStringLiteral("INSERT INTO IMPORTE VALUES ('2', '12.5', 'bien')"));
        ok(QStringLiteral("INSERT INTO IMPORTE VALUES ('3', '-0.75', NULL)"));
    }

    // Codes of the rows whose value lies in the range, as typed on a screen.
    QString enRango(const QString &desde, const QString &hasta) {
        return ok(QStringLiteral("SELECT Codigo FROM IMPORTE WHERE ") +
                  datos_->CondicionCampo(QStringLiteral("Valor"), desde, hasta,
                                         QStringLiteral("ftFloat")) +
                  QStringLiteral(" ORDER BY Codigo"));
    }
};

TEST_P(DecimalesEnSentencias, RangesTypedWithCommasAndThousandsFindTheRows) {
    EXPECT_EQ(enRango(QStringLiteral("1.234,56"), QStringLiteral("1.234,56")), QStringLiteral("1"));
    EXPECT_EQ(enRango(QStringLiteral("12,5"), QStringLiteral("1.300,00")),
              QStringLiteral("1\r\n2"));
    // Without a comma the point is the keypad's decimal sign: 1.300 is 1,3.
    EXPECT_EQ(enRango(QStringLiteral("-1"), QStringLiteral("1.300")), QStringLiteral("3"));
    EXPECT_EQ(enRango(QStringLiteral("-1"), QStringLiteral("12.5")), QStringLiteral("2\r\n3"));
    // Bad text becomes 0, never part of the statement.
    EXPECT_EQ(enRango(QStringLiteral("0'); DROP TABLE IMPORTE; --"), QStringLiteral("13")),
              QStringLiteral("2"));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM IMPORTE")), QStringLiteral("3"));
}

TEST_P(DecimalesEnSentencias, SumsComeBackAsNumbersAndFailuresAsZero) {
    RegistroSimple r(QStringLiteral("IMPORTE"));
    r.campo(QStringLiteral("Codigo"), ColumnKind::Integer);
    const QStringList codigo{QStringLiteral("Codigo")};
    EXPECT_DOUBLE_EQ(datos_->SumaCampo(r, codigo, QStringLiteral("Valor"), {QStringLiteral("1")}),
                     1234.56);
    EXPECT_DOUBLE_EQ(datos_->SumaCampo(r, codigo, QStringLiteral("Valor"), {QStringLiteral("3")}),
                     -0.75);
    // Large sums come back whole, whatever way the result text writes them.
    EXPECT_DOUBLE_EQ(
        datos_->SumaCampo(r, codigo, QStringLiteral("Valor * 1000000000"), {QStringLiteral("1")}),
        1234560000000.0);
    EXPECT_DOUBLE_EQ(datos_->SumaCampo(r, codigo, QStringLiteral("Valor"), {QStringLiteral("9")}),
                     0.0);
    EXPECT_DOUBLE_EQ(
        datos_->SumaCampo(r, codigo, QStringLiteral("NoHay * 2"), {QStringLiteral("1")}), 0.0);
}

TEST_P(DecimalesEnSentencias, AFailingStatementIsAFailureAndAStoredTextIsNot) {
    const QString fallo = datos_->EjecutarSQL(QStringLiteral("SELECT NoHay FROM IMPORTE"), {},
                                              QStringLiteral("Silenciosa,No Crear Tabla"));
    EXPECT_TRUE(EsResultadoError(fallo)) << fallo.toStdString();
    EXPECT_FALSE(MotivoResultado(fallo).startsWith(u"Error."));
    EXPECT_FALSE(MotivoResultado(fallo).isEmpty());
    // A value that holds the word, even first in its column, is data.
    const QString datos = ok(QStringLiteral("SELECT Codigo, Nota FROM IMPORTE WHERE Codigo = 1"));
    EXPECT_FALSE(EsResultadoError(datos)) << datos.toStdString();
    EXPECT_EQ(datos, QStringLiteral("1|Error. de un usuario"));
    EXPECT_TRUE(messages_.shown().isEmpty());
}

CO_ON_BOTH_BACKENDS(DecimalesEnSentencias);

} // namespace
} // namespace co
