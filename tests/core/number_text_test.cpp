#include "core/failure.h"
#include "core/failure_handler.h"
#include "core/messages.h"
#include "core/number_text.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

namespace co {
namespace {

double num(const char *text, const char *options = "") {
    return TextoANumero(QString::fromUtf8(text), QString::fromUtf8(options));
}

TEST(TextoANumero, SpanishFormatByDefault) {
    EXPECT_EQ(num("1.234,56"), 1234.56);
    EXPECT_EQ(num("1,5"), 1.5);
    EXPECT_EQ(num("  -3,25 "), -3.25);
    EXPECT_EQ(num("+7"), 7.0);
    EXPECT_EQ(num("1,5E3"), 1500.0);
    EXPECT_EQ(num(",5"), 0.5);
    EXPECT_EQ(num("1.000.000"), 1000000.0);
}

TEST(TextoANumero, PuntoDecimalTakesThePointAsDecimalSign) {
    EXPECT_EQ(num("1,234.56", "PuntoDecimal"), 1234.56);
    EXPECT_EQ(num("1.5", "PuntoDecimal"), 1.5);
    EXPECT_EQ(num("2.5", "Silenciosa,PuntoDecimal"), 2.5);
    // Without the option the point is a thousand separator.
    EXPECT_EQ(num("2.5"), 25.0);
}

TEST(TextoANumero, BadTextRaisesTheEngineFailure) {
    for (const char *bad : {"", "   ", "abc", "1,2,3", "1e", "--1", "1 2", "1e400", "12a", "-"}) {
        SCOPED_TRACE(bad);
        try {
            num(bad);
            ADD_FAILURE() << "no failure";
        } catch (const Failure &f) {
            EXPECT_EQ(f.text(), u'\'' + QString::fromUtf8(bad) +
                                    QStringLiteral("' is not a valid floating point value"));
        }
    }
}

TEST(TextoANumero, FailureReachesTheUserInSpanish) {
    try {
        num("doce");
        FAIL();
    } catch (const Failure &f) {
        const FailureDecision d = GestionExcepciones(f.text());
        EXPECT_EQ(d.kind, QStringLiteral("Advertencia"));
        EXPECT_EQ(d.message,
                  QStringLiteral("¡ El dato introducido no es válido !. Repita por favor."));
    }
}

TEST(NumeroValido, WarnsOnlyWithALabel) {
    ScriptedMessages port;
    Messenger m(&port);
    EXPECT_TRUE(NumeroValido(QStringLiteral("12,5"), QStringLiteral("Cantidad"), &m));
    EXPECT_FALSE(NumeroValido(QStringLiteral("x"), QString(), &m));
    EXPECT_TRUE(port.shown().isEmpty());
    EXPECT_FALSE(NumeroValido(QStringLiteral("x"), QStringLiteral("Cantidad"), &m));
    ASSERT_EQ(port.shown().size(), 1);
    EXPECT_EQ(port.shown().at(0).kind, u'A');
    EXPECT_EQ(port.shown().at(0).text,
              QStringLiteral("¡El valor de Cantidad es incorrecto! Repita por favor"));
    EXPECT_FALSE(NumeroValido(QStringLiteral(""), QStringLiteral("Precio"), nullptr));
}

} // namespace
} // namespace co
