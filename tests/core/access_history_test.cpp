// The access history of a record on both back-ends: both forms of the stored
// key, newest first, the text of each line and the list viewer's definition.
#include "core/access_history.h"

#include "user_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

class AccessHistory : public test::UserTest {
protected:
    void add(const QString &tabla, const QString &clave, const QString &usuario,
             const QString &fecha, const QString &accion, const QString &datos) {
        ok(QStringLiteral("INSERT INTO REGACCES (NombreTabla, ClaveTabla, CodigoUsuario, Fecha, "
                          "Accion, Datos) VALUES (") +
           QStringList{Entrecomillar(tabla), Entrecomillar(clave), Entrecomillar(usuario),
                       Entrecomillar(fecha), Entrecomillar(accion), Entrecomillar(datos)}
               .join(QStringLiteral(", ")) +
           u')');
    }
};

TEST(AccessHistoryText, StatementAndDefinitionAreTheSystemOnes) {
    EXPECT_EQ(ClaveHistorial(QStringLiteral("12;3;")), QStringLiteral("12|3|"));
    EXPECT_EQ(SentenciaHistorialAccesos(QStringLiteral("CAPITULO"), QStringLiteral("12|3|")),
              QStringLiteral("SELECT CodigoUsuario, Fecha, Accion, Datos FROM REGACCES   WHERE "
                             "NombreTabla = 'CAPITULO'    AND ((ClaveTabla = '12|3|')      OR "
                             "(ClaveTabla = '12|3'))   ORDER BY Fecha DESC"));
    EXPECT_EQ(DefinicionHistorialAccesos(QStringLiteral("CAPITULO"), QStringLiteral("12|3|")),
              QStringLiteral("Titulo=Historial de Accesos al Registro: CAPITULO - 12|3|\r\n"
                             "Formato=0,0,430,0;\r\nNumeroCampos=4\r\n"
                             "Modo=Consulta,Sin Seleccion\r\n"
                             "DefinicionCampos=CodigoUsuario,ftString,20;Fecha,ftString,20;"
                             "Accion,ftString,20;Datos,ftMemo,10"));
    EXPECT_TRUE(
        SentenciaHistorialAccesos(QStringLiteral("O'B"), QStringLiteral("a'b|"))
            .contains(QStringLiteral("NombreTabla = 'O''B'    AND ((ClaveTabla = 'a''b|')")));
}

TEST_P(AccessHistory, RowsOfBothKeyFormsNewestFirst) {
    add(QStringLiteral("CAPITULO"), QStringLiteral("12|3|"), QStringLiteral("ana"),
        QStringLiteral("2026-11-20 09:30:00"), QStringLiteral("Modificar"),
        QStringLiteral("Descripcion=Cimientos\r\nSituacion=Abierto|Cerrado"));
    add(QStringLiteral("CAPITULO"), QStringLiteral("12|3"), QStringLiteral("bob"),
        QStringLiteral("2026-11-21 18:05:07"), QStringLiteral("Alta"), QStringLiteral("x\ny"));
    add(QStringLiteral("CAPITULO"), QStringLiteral("12|31"), QStringLiteral("eva"),
        QStringLiteral("2026-11-22 10:00:00"), QStringLiteral("Alta"), QString());
    add(QStringLiteral("OBRA"), QStringLiteral("12|3|"), QStringLiteral("eva"),
        QStringLiteral("2026-11-22 10:00:00"), QStringLiteral("Alta"), QString());
    const std::optional<HistorialAccesos> h =
        HistorialAccesosRegistro(*datos_, QStringLiteral("CAPITULO"), QStringLiteral("12;3;"));
    ASSERT_TRUE(h.has_value());
    EXPECT_EQ(h->lineas,
              QStringList({QStringLiteral("bob|21/11/2026 18:05:07|Alta|x y"),
                           QStringLiteral("ana|20/11/2026 09:30:00|Modificar|"
                                          "Descripcion=Cimientos Situacion=Abierto·Cerrado")}));
    EXPECT_TRUE(h->definicion.startsWith(
        QStringLiteral("Titulo=Historial de Accesos al Registro: CAPITULO - 12|3|\r\n")));
    EXPECT_TRUE(messages_.texts().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(AccessHistory, RecordWithoutHistoryAndHostileKeys) {
    add(QStringLiteral("CLIENTE"), QStringLiteral("O'Brien|"), QStringLiteral("ana"),
        QStringLiteral("2026-11-20 09:30:00"), QStringLiteral("Baja"), QString());
    const std::optional<HistorialAccesos> none =
        HistorialAccesosRegistro(*datos_, QStringLiteral("CLIENTE"), QStringLiteral("7;"));
    ASSERT_TRUE(none.has_value());
    EXPECT_TRUE(none->lineas.isEmpty());
    const std::optional<HistorialAccesos> quoted =
        HistorialAccesosRegistro(*datos_, QStringLiteral("CLIENTE"), QStringLiteral("O'Brien;"));
    ASSERT_TRUE(quoted.has_value());
    EXPECT_EQ(quoted->lineas, QStringList({QStringLiteral("ana|20/11/2026 09:30:00|Baja|")}));
    const std::optional<HistorialAccesos> hostile = HistorialAccesosRegistro(
        *datos_, QStringLiteral("CLIENTE' OR '1'='1"), QStringLiteral("x') OR ('1'='1;"));
    ASSERT_TRUE(hostile.has_value());
    EXPECT_TRUE(hostile->lineas.isEmpty());
}

CO_ON_BOTH_BACKENDS(AccessHistory);

} // namespace
} // namespace co
