#include "core/date_utils.h"
#include "core/failure.h"
#include "core/failure_handler.h"
#include "core/messages.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

namespace co {
namespace {

QDateTime fecha(const char *text) {
    return TextoAFecha(QString::fromUtf8(text));
}

TEST(CompletarAnio, CenturyWindowAtFifty) {
    EXPECT_EQ(CompletarAnio(0), 2000);
    EXPECT_EQ(CompletarAnio(49), 2049);
    EXPECT_EQ(CompletarAnio(50), 1950);
    EXPECT_EQ(CompletarAnio(99), 1999);
    EXPECT_EQ(CompletarAnio(100), 100);
    EXPECT_EQ(CompletarAnio(2024), 2024);
}

TEST(TextoAFecha, DayFirstWithOptionalTime) {
    EXPECT_EQ(fecha("5/3/2024"), QDateTime(QDate(2024, 3, 5), QTime(0, 0)));
    EXPECT_EQ(fecha(" 05/03/24 "), QDateTime(QDate(2024, 3, 5), QTime(0, 0)));
    EXPECT_EQ(fecha("1/2/75 9:30"), QDateTime(QDate(1975, 2, 1), QTime(9, 30)));
    EXPECT_EQ(fecha("31/12/9940 23:59:59"), FechaUltimoRegistro());
    EXPECT_EQ(fecha("30/12/1899 00:00:00"), FechaNula());
}

TEST(TextoAFecha, BadTextRaisesTheEngineFailure) {
    for (const char *bad : {"", "hoy", "29/2/2023", "32/1/2024", "1/13/2024", "2024-03-05",
                            "1/1/2024 25:00", "1/1", "1/1/0000", "12/30/1899 00:00:00"}) {
        SCOPED_TRACE(bad);
        try {
            fecha(bad);
            ADD_FAILURE() << "no failure";
        } catch (const Failure &f) {
            EXPECT_EQ(f.text(),
                      u'\'' + QString::fromUtf8(bad) + QStringLiteral("' is not a valid date"));
            EXPECT_EQ(GestionExcepciones(f.text()).message,
                      QStringLiteral(
                          "¡ La fecha (u hora) introducida no es válida !. Repita por favor."));
        }
    }
}

TEST(FechaValida, FirstOfJanuary1890IsRefused) {
    EXPECT_FALSE(FechaValida(QStringLiteral("1/1/1890"), QString(), nullptr));
    EXPECT_FALSE(FechaValida(QStringLiteral("31/12/1889"), QString(), nullptr));
    EXPECT_TRUE(FechaValida(QStringLiteral("2/1/1890"), QString(), nullptr));
    EXPECT_TRUE(FechaValida(QStringLiteral("1/1/1890 00:00:01"), QString(), nullptr));
    EXPECT_TRUE(FechaValida(QStringLiteral("15/6/2023"), QString(), nullptr));
}

TEST(FechaValida, WarnsWithTheLabel) {
    ScriptedMessages port;
    Messenger m(&port);
    EXPECT_FALSE(FechaValida(QStringLiteral("30/2/2024"), QStringLiteral("Albarán"), &m));
    EXPECT_FALSE(FechaValida(QStringLiteral("1/1/1800"), QStringLiteral("Factura"), &m));
    EXPECT_TRUE(FechaValida(QStringLiteral("1/1/2000"), QStringLiteral("Factura"), &m));
    EXPECT_FALSE(FechaValida(QStringLiteral("x"), QString(), &m));
    EXPECT_EQ(
        port.texts(),
        QStringList({QStringLiteral("¡La fecha de Albarán es incorrecta! Repita por favor"),
                     QStringLiteral("¡La fecha de Factura es incorrecta! Repita por favor")}));
}

} // namespace
} // namespace co
