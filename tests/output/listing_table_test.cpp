// The temporary table of a listing on both back-ends: filled once from one
// statement per source, numbered in order across sources, read back in blocks
// whatever their size, and refused clearly when it cannot be made or filled.
#include "output/listing_table.h"
#include "support/layer_fixture.h"

namespace co::test {
namespace {

const QString kDefinicion = QStringLiteral("Tabla Temporal\r\n"
                                           "/C/1/Linea/ftInteger/0/*\r\n"
                                           "/C/2/Codigo/ftInteger/0/\r\n"
                                           "/C/3/Texto/ftString/40/\r\n"
                                           "/C/4/Importe/ftFloat/0/\r\n"
                                           "/I/1/<Primary>/Linea");

class ListingTable : public TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral(
            "CREATE TABLE ORIGENA (Codigo INTEGER, Texto VARCHAR(40), Importe FLOAT)"));
        ok(QStringLiteral("CREATE TABLE ORIGENB (Numero INTEGER, Nombre VARCHAR(40))"));
        // Kept in the reverse of the listing's order.
        for (int codigo = 7; codigo >= 1; --codigo)
            ok(QStringLiteral("INSERT INTO ORIGENA VALUES ('%1', 'a%1', '%2')")
                   .arg(codigo)
                   .arg(codigo * 1.5));
        ok(QStringLiteral("INSERT INTO ORIGENB VALUES ('100', 'b''uno')"));
        ok(QStringLiteral("INSERT INTO ORIGENB VALUES ('50', 'b dos')"));
    }
    OrigenListado origenA(const QString &desde = {}, const QString &hasta = {}) const {
        OrigenListado o;
        o.columnas = {QStringLiteral("Codigo"), QStringLiteral("Texto"), QStringLiteral("Importe")};
        o.expresiones = {QStringLiteral("A.Codigo"), QStringLiteral("A.Texto"),
                         QStringLiteral("A.Importe")};
        o.desde = QStringLiteral("ORIGENA A");
        if (!desde.isEmpty())
            o.condiciones << datos_->CondicionCampo(QStringLiteral("A.Codigo"), desde, hasta,
                                                    QStringLiteral("ftInteger"));
        o.orden = QStringLiteral("A.Codigo");
        return o;
    }
    OrigenListado origenB() const {
        OrigenListado o;
        o.columnas = {QStringLiteral("Codigo"), QStringLiteral("Texto")};
        o.expresiones = {QStringLiteral("B.Numero"), QStringLiteral("B.Nombre")};
        o.desde = QStringLiteral("ORIGENB B");
        o.orden = QStringLiteral("B.Numero DESC");
        return o;
    }

    // (Linea, Codigo, Texto) of every row the reader gives.
    QStringList leer(const TablaListado &t, int porBloque) {
        std::unique_ptr<ReportDataSource> r = t.Lector(porBloque);
        QString motivo;
        EXPECT_TRUE(r->open(&motivo)) << motivo.toStdString();
        const int linea = r->fieldIndex(QStringLiteral("Temporal.Linea"));
        const int codigo = r->fieldIndex(QStringLiteral("Codigo"));
        const int texto = r->fieldIndex(QStringLiteral("texto"));
        EXPECT_GE(linea, 0);
        EXPECT_GE(codigo, 0);
        EXPECT_GE(texto, 0);
        QStringList out;
        while (r->next())
            out << QStringLiteral("%1 %2 %3")
                       .arg(r->value(linea).toInt())
                       .arg(r->value(codigo).toInt())
                       .arg(r->value(texto).toString());
        EXPECT_EQ(r->recordCount(), out.size());
        return out;
    }
};

TEST_P(ListingTable, SourcesAreNumberedInOrderAndReadInBlocksOfAnySize) {
    TablaListado t(*datos_, *creador_, QStringLiteral("fOBQRLPRU"));
    QString motivo;
    ASSERT_TRUE(t.Crear(kDefinicion, &motivo)) << motivo.toStdString();
    ASSERT_TRUE(t.Llenar(origenA(QStringLiteral("2"), QStringLiteral("6")), &motivo))
        << motivo.toStdString();
    EXPECT_EQ(t.Filas(), 5);
    ASSERT_TRUE(t.Llenar(origenB(), &motivo)) << motivo.toStdString();
    EXPECT_EQ(t.Filas(), 7);
    const QStringList esperado = {QStringLiteral("1 2 a2"),    QStringLiteral("2 3 a3"),
                                  QStringLiteral("3 4 a4"),    QStringLiteral("4 5 a5"),
                                  QStringLiteral("5 6 a6"),    QStringLiteral("6 100 b'uno"),
                                  QStringLiteral("7 50 b dos")};
    // Blocks of one, of a size that splits the rows unevenly, of exactly all,
    // and larger than all: the same rows each time, and read again alike.
    for (int porBloque : {1, 3, 7, 500})
        EXPECT_EQ(leer(t, porBloque), esperado) << "block of " << porBloque;
}

TEST_P(ListingTable, MakingItAgainEmptiesItAndAnEmptySourceGivesNoRows) {
    TablaListado t(*datos_, *creador_, QStringLiteral("fOBQRLPRU"));
    QString motivo;
    ASSERT_TRUE(t.Crear(kDefinicion, &motivo)) << motivo.toStdString();
    ASSERT_TRUE(t.Llenar(origenA(), &motivo));
    ASSERT_EQ(t.Filas(), 7);
    ASSERT_TRUE(t.Crear(kDefinicion, &motivo)) << motivo.toStdString();
    ASSERT_TRUE(t.Llenar(origenA(QStringLiteral("90"), QStringLiteral("99")), &motivo));
    EXPECT_EQ(t.Filas(), 0);
    std::unique_ptr<ReportDataSource> r = t.Lector(2);
    ASSERT_TRUE(r->open(&motivo)) << motivo.toStdString();
    EXPECT_GE(r->fieldIndex(QStringLiteral("Importe")), 0) << "the columns are known with no row";
    EXPECT_FALSE(r->next());
    EXPECT_EQ(r->recordCount(), 0);
}

TEST_P(ListingTable, TheFillIsOneStatementWithTheConditionsAndTheOrder) {
    TablaListado t(*datos_, *creador_, QStringLiteral("fOBQRLPRU"));
    QString motivo;
    ASSERT_TRUE(t.Crear(kDefinicion, &motivo));
    const QString sql = t.SentenciaLlenado(origenA(QStringLiteral("2"), QStringLiteral("6")), 4);
    EXPECT_TRUE(sql.startsWith(QStringLiteral("INSERT INTO ") + t.NombreCualificado() +
                               QStringLiteral(" (Linea, Codigo, Texto, Importe) SELECT "
                                              "ROW_NUMBER() OVER (ORDER BY A.Codigo) + 4, ")))
        << sql.toStdString();
    EXPECT_TRUE(
        sql.contains(QStringLiteral(" WHERE ") +
                     datos_->CondicionCampo(QStringLiteral("A.Codigo"), QStringLiteral("2"),
                                            QStringLiteral("6"), QStringLiteral("ftInteger"))))
        << sql.toStdString();
    EXPECT_TRUE(sql.endsWith(QStringLiteral(" ORDER BY A.Codigo")));
    EXPECT_FALSE(t.SentenciaLlenado(origenB(), 0).contains(QStringLiteral("WHERE")));
}

TEST_P(ListingTable, BadDefinitionsAndSourcesAreRefusedWithAReason) {
    TablaListado t(*datos_, *creador_, QStringLiteral("fOBQRLPRU"));
    QString motivo;
    EXPECT_FALSE(t.Llenar(origenA(), &motivo));
    EXPECT_EQ(motivo, QStringLiteral("La tabla temporal del listado no está creada."));
    EXPECT_FALSE(t.Crear(QStringLiteral("Tabla Temporal\r\n/I/1/<Primary>/Linea"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("número de fila"))) << motivo.toStdString();
    EXPECT_FALSE(t.Crear(QStringLiteral("OBRA\r\n/C/1/Linea/ftInteger/0/*"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("Tabla Temporal"))) << motivo.toStdString();

    ASSERT_TRUE(t.Crear(kDefinicion, &motivo)) << motivo.toStdString();
    OrigenListado cojo = origenA();
    cojo.expresiones.removeLast();
    EXPECT_FALSE(t.Llenar(cojo, &motivo));
    EXPECT_TRUE(motivo.startsWith(QStringLiteral("Las columnas de la tabla temporal")));

    OrigenListado malo = origenA();
    malo.expresiones[1] = QStringLiteral("A.NoExiste");
    messages_.clear();
    EXPECT_FALSE(t.Llenar(malo, &motivo));
    EXPECT_FALSE(motivo.isEmpty());
    EXPECT_FALSE(messages_.texts().isEmpty()) << "the statement layer shows the failure";
    EXPECT_EQ(t.Filas(), 0) << "nothing was added";
}

CO_ON_BOTH_BACKENDS(ListingTable);

} // namespace
} // namespace co::test
