// Fields read from the catalog (type words, sizes, required), hour fields,
// display formats from the number templates, and query datasets, on both
// back-ends.
#include "forms/display_formats.h"
#include "forms/field_limits.h"
#include "forms/query_dataset.h"
#include "forms_fixture.h"

#include <gtest/gtest.h>

namespace co::forms::test {
namespace {

class FieldsAndQueries : public FormsTest {};

TEST_P(FieldsAndQueries, FieldsTakeTheirTypeWordSizeAndRequiredFromTheTable) {
    auto t = abrir();
    EXPECT_EQ(t->FieldNamesList(), (QStringList{"CodigoObra", "Nombre", "Importe", "FechaInicio",
                                                "HoraInicio", "Bloque"}));
    EXPECT_EQ(t->FieldByName(QStringLiteral("codigoobra")).TypeName(), QStringLiteral("ftInteger"));
    EXPECT_TRUE(t->FieldByName(QStringLiteral("CodigoObra")).Required);
    EXPECT_EQ(t->FieldByName(QStringLiteral("Nombre")).TypeName(), QStringLiteral("ftString"));
    EXPECT_EQ(t->FieldByName(QStringLiteral("Nombre")).Size, 40);
    EXPECT_FALSE(t->FieldByName(QStringLiteral("Nombre")).Required);
    EXPECT_EQ(t->FieldByName(QStringLiteral("Importe")).TypeName(), QStringLiteral("ftFloat"));
    EXPECT_EQ(t->FieldByName(QStringLiteral("FechaInicio")).TypeName(),
              QStringLiteral("ftDateTime"));
    EXPECT_EQ(t->FieldByName(QStringLiteral("Bloque")).TypeName(), QStringLiteral("ftSmallint"));
    EXPECT_TRUE(t->FieldByName(QStringLiteral("HoraInicio")).IsHourField());
    EXPECT_FALSE(t->FieldByName(QStringLiteral("FechaInicio")).IsHourField());
    EXPECT_EQ(t->PrimaryKey(), QStringList{QStringLiteral("CodigoObra")});
}

TEST_P(FieldsAndQueries, HourFieldsReadAndWriteTheTime) {
    obras(1, 1);
    auto t = abrir();
    t->Edit();
    Field &hora = t->FieldByName(QStringLiteral("HoraInicio"));
    hora.SetAsString(QStringLiteral("7:05"));
    EXPECT_EQ(hora.AsString(), QStringLiteral("07:05:00"));
    EXPECT_THROW(hora.SetAsString(QStringLiteral("7.05")), EDatabaseError);
    EXPECT_THROW(hora.SetAsString(QStringLiteral("24:00")), EDatabaseError);
    t->Post();
    t->Refresh();
    EXPECT_EQ(t->FieldByName(QStringLiteral("HoraInicio")).AsString(), QStringLiteral("07:05:00"));
    EXPECT_EQ(datos_->ValorClave(*t), QStringLiteral("1;"));
}

TEST_P(FieldsAndQueries, ValuesBeyondTheirFieldAreRefusedOnPostAndKeptAsTyped) {
    obras(1, 1);
    const QString antes = ok(QStringLiteral("SELECT Nombre, Bloque FROM PRUOBRA"));
    auto t = abrir();
    t->Edit();
    t->FieldByName(QStringLiteral("Nombre")).SetAsString(QString(41, u'x'));
    EXPECT_EQ(t->FieldByName(QStringLiteral("Nombre")).AsString().size(), 41) << "nothing is cut";
    try {
        t->Post();
        ADD_FAILURE() << "a text beyond the width was written";
    } catch (const EValorCampo &e) {
        EXPECT_EQ(e.Texto(),
                  QStringLiteral(
                      "¡El valor de Nombre no puede tener más de 40 caracteres! Repita por favor"));
    }
    EXPECT_EQ(t->State(), DatasetState::Edit);
    t->FieldByName(QStringLiteral("Nombre")).SetAsString(QString(40, u'x'));
    // A whole number beyond its type, either way.
    for (const char *fuera : {"32768", "-32769", "99999999999"}) {
        t->FieldByName(QStringLiteral("Bloque")).SetAsString(QString::fromLatin1(fuera));
        EXPECT_THROW(t->Post(), EValorCampo) << fuera;
        EXPECT_EQ(t->FieldByName(QStringLiteral("Bloque")).AsString(), QString::fromLatin1(fuera));
    }
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre, Bloque FROM PRUOBRA")), antes);
    // With a screen's messages the post tells and stops silently, still pending.
    QStringList avisos;
    t->AvisoValorCampo = [&avisos](const QString &texto) { avisos << texto; };
    EXPECT_THROW(t->Post(), EAbort);
    EXPECT_EQ(avisos,
              QStringList{QStringLiteral("¡El valor de Bloque es incorrecto! Repita por favor")});
    EXPECT_EQ(t->State(), DatasetState::Edit);
    t->FieldByName(QStringLiteral("Bloque")).SetAsString(QStringLiteral("-32768"));
    t->Post();
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre, Bloque FROM PRUOBRA")),
              QString(40, u'x') + QStringLiteral("|-32768"));
}

TEST_P(FieldsAndQueries, PercentagesLieBetweenZeroAndAHundred) {
    ok(QStringLiteral(
        "CREATE TABLE PRUIVA (Codigo INTEGER NOT NULL PRIMARY KEY, PorcentajeIVA DOUBLE "
        "PRECISION, Iva2 DOUBLE PRECISION, Importe DOUBLE PRECISION)"));
    auto t = abrir(QStringLiteral("PRUIVA"));
    t->Append();
    t->FieldByName(QStringLiteral("Codigo")).SetAsInteger(1);
    t->FieldByName(QStringLiteral("Importe")).SetAsString(QStringLiteral("-150"));
    for (const char *campo : {"PorcentajeIVA", "Iva2"}) {
        Field &f = t->FieldByName(QString::fromLatin1(campo));
        for (const char *mal : {"150", "-0,5", "100,01"}) {
            f.SetAsString(QString::fromLatin1(mal));
            EXPECT_THROW(t->Post(), EValorCampo) << campo << " " << mal;
        }
        f.SetAsString(QStringLiteral("100"));
    }
    t->Post();
    EXPECT_EQ(ok(QStringLiteral("SELECT PorcentajeIVA, Iva2, Importe FROM PRUIVA")),
              QStringLiteral("100|100|-150"));
    EXPECT_TRUE(EsCampoPorcentaje(QStringLiteral("PorcentajeRgo")));
    EXPECT_TRUE(EsCampoPorcentaje(QStringLiteral("Recargo5")));
    EXPECT_FALSE(EsCampoPorcentaje(QStringLiteral("Iva6")));
    EXPECT_FALSE(EsCampoPorcentaje(QStringLiteral("ImporteIva1")));
}

TEST_P(FieldsAndQueries, PlaceholderFormatsFollowTheFieldName) {
    ok(QStringLiteral(
        "CREATE TABLE PRUPRECI (Codigo INTEGER NOT NULL PRIMARY KEY, PrecioVenta DOUBLE PRECISION, "
        "ImporteTotal DOUBLE PRECISION, CantidadPedida DOUBLE PRECISION, TotalHoras DOUBLE "
        "PRECISION, "
        "Otro DOUBLE PRECISION, HoraFin TIMESTAMP)"));
    ok(QStringLiteral("INSERT INTO PRUPRECI VALUES ('1', '1234.5', '1000', '2.5', '3', '7', "
                      "'1899-12-30 10:15:00')"));
    auto t = abrir(QStringLiteral("PRUPRECI"));
    for (int i = 0; i < t->FieldCount(); ++i)
        t->FieldByIndex(i).DisplayFormat = QString::fromLatin1(kFormatoProvisional);
    FormatosNumericos f;
    f.precio = QStringLiteral("#,##0.000");
    f.importe = QStringLiteral("#,##0.00");
    f.plantillas = CargarPlantillasNumericas(
        QStringLiteral("#,###.##"), QStringLiteral("PlantillaNumerica1=0.0 cantidad,Horas\r\n"));
    AplicarFormatos(*t, f);
    EXPECT_EQ(t->FieldByName(QStringLiteral("PrecioVenta")).DisplayText(),
              QStringLiteral("1.234,500"));
    EXPECT_EQ(t->FieldByName(QStringLiteral("ImporteTotal")).DisplayText(),
              QStringLiteral("1.000,00"))
        << "Importe comes before the templates and Total";
    EXPECT_EQ(t->FieldByName(QStringLiteral("CantidadPedida")).DisplayText(), QStringLiteral("2,5"))
        << "template fragments match in any case";
    EXPECT_EQ(t->FieldByName(QStringLiteral("TotalHoras")).DisplayFormat, QStringLiteral("0.0"))
        << "a template comes before Total";
    EXPECT_EQ(t->FieldByName(QStringLiteral("Otro")).DisplayFormat,
              QString::fromLatin1(kFormatoProvisional));
    EXPECT_EQ(t->FieldByName(QStringLiteral("HoraFin")).DisplayFormat, QStringLiteral("HH:MM:SS"));
    EXPECT_EQ(t->FieldByName(QStringLiteral("HoraFin")).DisplayText(), QStringLiteral("10:15:00"));
}

TEST_P(FieldsAndQueries, QueryHoldsTheRowsOfItsStatement) {
    obras(1, 9);
    Query q(*datos_);
    q.SQL = QStringLiteral("SELECT CodigoObra, Nombre, Importe FROM PRUOBRA WHERE CodigoObra > '3' "
                           "ORDER BY CodigoObra DESC");
    q.Open();
    EXPECT_EQ(q.KeyTableName(), QStringLiteral("PRUOBRA"));
    EXPECT_EQ(q.RecordCount(), 6);
    EXPECT_EQ(codigo(q), 9);
    q.Last();
    EXPECT_EQ(codigo(q), 4);
    q.SetIndexFieldNames(QStringLiteral("CodigoObra"));
    q.SetRange({5}, {7});
    EXPECT_EQ(q.RecordCount(), 3);
    EXPECT_EQ(codigo(q), 7);
    q.CancelRange();
    EXPECT_TRUE(q.Locate(QStringLiteral("Nombre"), {QStringLiteral("Obra 6")}));
    const Bookmark seis = q.GetBookmark();
    q.Insert();
    q.FieldByName(QStringLiteral("CodigoObra")).SetAsInteger(100);
    q.Post();
    EXPECT_EQ(q.RecNo(), 4) << "inserted before the current row";
    q.GotoBookmark(seis);
    EXPECT_EQ(codigo(q), 6);
    EXPECT_EQ(q.RecNo(), 5);
    q.Delete();
    EXPECT_EQ(codigo(q), 5);
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PRUOBRA")), QStringLiteral("9"))
        << "a query's rows are its own";
}

TEST_P(FieldsAndQueries, BadStatementIsRefusedWithItsFailure) {
    Query q(*datos_);
    q.SQL = QStringLiteral("SELECT Nada FROM PRUOBRA");
    EXPECT_THROW(q.Open(), EDatabaseError);
    EXPECT_FALSE(q.Active());
    EXPECT_TRUE(messages_.shown().isEmpty()) << "the dataset tells nothing itself";
}

CO_ON_BOTH_BACKENDS(FieldsAndQueries);

} // namespace
} // namespace co::forms::test
