// Definition texts of the generic list windows, as callers write them.
#include "forms/list_definition.h"

#include <gtest/gtest.h>

namespace co::forms {
namespace {

TEST(ListDefinition, ReadsKeysInAnyOrderWithTheirColumns) {
    const DefinicionLista d = LeerDefinicionLista(
        QStringLiteral("NumeroCampos=3\r\nModo=Consulta,Sin Seleccion\r\nFormato=10,20,430,0;\r\n"
                       "DefinicionCampos=Codigo,ftString,20,ReadOnly;Importe,ftFloat,0,,,80;"
                       "EstiloLinea,ftString,40;Sobra,ftString,5\r\nTitulo=Lotes = pendientes"));
    EXPECT_EQ(d.titulo, QStringLiteral("Lotes = pendientes")) << "only the first '=' separates";
    EXPECT_TRUE(d.SoloConsulta());
    EXPECT_EQ(d.izquierda, 10);
    EXPECT_EQ(d.arriba, 20);
    EXPECT_EQ(d.ancho, 430);
    EXPECT_EQ(d.alto, 0);
    ASSERT_EQ(d.columnas.size(), 3) << "NumeroCampos limits the entries";
    EXPECT_EQ(d.columnas[0].campo, QStringLiteral("Codigo"));
    EXPECT_EQ(d.columnas[0].longitud, 20);
    EXPECT_TRUE(d.columnas[0].soloLectura);
    EXPECT_EQ(d.columnas[1].tipo, QStringLiteral("ftFloat"));
    EXPECT_EQ(d.columnas[1].ancho, 80);
    EXPECT_FALSE(d.columnas[1].soloLectura);
    EXPECT_TRUE(d.columnas[2].Oculta());
}

TEST(ListDefinition, MissingOrBrokenKeysReadAsEmpty) {
    const DefinicionLista vacia = LeerDefinicionLista(QString());
    EXPECT_TRUE(vacia.titulo.isEmpty());
    EXPECT_TRUE(vacia.columnas.isEmpty());
    EXPECT_FALSE(vacia.SoloConsulta());
    const DefinicionLista rota = LeerDefinicionLista(
        QStringLiteral("sin igual\nFormato=a,b\nNumeroCampos=x\nDefinicionCampos=A;;B,ftMemo"));
    EXPECT_EQ(rota.izquierda, 0);
    EXPECT_EQ(rota.ancho, 0);
    ASSERT_EQ(rota.columnas.size(), 2) << "an unreadable count takes every entry";
    EXPECT_EQ(rota.columnas[1].tipo, QStringLiteral("ftMemo"));
}

TEST(ListDefinition, RowsArePaddedOrCutToTheColumns) {
    EXPECT_EQ(CamposFila(QStringLiteral("A|B"), 4), (QStringList{"A", "B", "", ""}));
    EXPECT_EQ(CamposFila(QStringLiteral("A|B|C"), 2), (QStringList{"A", "B"}));
    EXPECT_EQ(CamposFila(QString(), 1), QStringList{QString()});
}

} // namespace
} // namespace co::forms
