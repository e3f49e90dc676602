// The purchase, offer, rate and received-invoice tables that the masters and the
// accounting link read: a fresh installation answers their statements through
// the command line, the tables being made from the structure file on first use,
// on both back-ends.
#include "support/cli_run.h"
#include "support/layer_fixture.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

using test::CliRun;

class DocumentTables : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        settings_ = test::freshInstallation(GetParam(), dir_.path());
        if (GetParam() == Backend::PostgreSQL) {
            ASSERT_TRUE(EscribirInstalacion(dir_.path(), settings_));
        }
        const CliRun r =
            test::Ejecutar({QStringLiteral("init"), QStringLiteral("--dir"), dir_.path()});
        ASSERT_EQ(r.status, 0) << r.err.toStdString();
    }
    void TearDown() override { test::dropInstallation(settings_); }

    // The result text of a statement that must succeed.
    QString sql(const QString &sentencia) {
        const CliRun r = test::Ejecutar(
            {QStringLiteral("sql"), QStringLiteral("--dir"), dir_.path(), sentencia});
        EXPECT_EQ(r.status, 0) << sentencia.toStdString() << "\n"
                               << r.out.toStdString() << r.err.toStdString();
        return r.out;
    }

    QTemporaryDir dir_;
    InstallationSettings settings_;
};

TEST_P(DocumentTables, TheSuppliersHistorySumsRunOnAFreshCompany) {
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(F.NumeroFactura), SUM(F.TotalFactura*F.Cambio)  "
                                 "FROM FACTURAC F   WHERE F.CodigoProveedor=7")),
              QStringLiteral("0|"));
    for (const char *documento :
         {"OFERTAP|NumeroOferta|TotalOferta", "PEDIDOC|NumeroPedido|TotalPedido",
          "ENTRADA|NumeroEntrada|TotalEntrada"}) {
        const QStringList d = QString::fromLatin1(documento).split(u'|');
        sql(QStringLiteral("INSERT INTO %1 (%2, Fecha, CodigoProveedor, %3, Cambio) "
                           "VALUES ('1', '2026-03-02', '7', '1210.50', '1')")
                .arg(d[0], d[1], d[2]));
        sql(QStringLiteral("INSERT INTO %1 (%2, Fecha, CodigoProveedor, %3, Cambio) "
                           "VALUES ('2', '2026-03-09', '8', '99', '1')")
                .arg(d[0], d[1], d[2]));
        EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(D.%2), SUM(D.%3*D.Cambio) FROM %1 D "
                                     "WHERE D.CodigoProveedor=7")
                          .arg(d[0], d[1], d[2])),
                  QStringLiteral("1|1210,5"))
            << d[0].toStdString();
    }
}

TEST_P(DocumentTables, TheClientsHistoryAndTheOrderReceiversCifRun) {
    sql(QStringLiteral("INSERT INTO OFERTA (NumeroOferta, CodigoCliente, Cambio) "
                       "VALUES ('4', '3', '1')"));
    for (const char *linea : {"1', '100.25", "2', '50"})
        sql(QStringLiteral("INSERT INTO LOFERTA (NumeroOferta, Linea, Importe) "
                           "VALUES ('4', '%1')")
                .arg(QLatin1String(linea)));
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(DISTINCT O.NumeroOferta), SUM(L.Importe* O.Cambio)  "
                                 "FROM OFERTA O JOIN LOFERTA L ON O.NumeroOferta = L.NumeroOferta "
                                 "WHERE O.CodigoCliente = 3")),
              QStringLiteral("1|150,25"));
    sql(QStringLiteral("INSERT INTO PEDIDOC (NumeroPedido, CodigoProveedor, CIF) "
                       "VALUES ('12', '7', 'B12345678')"));
    EXPECT_EQ(sql(QStringLiteral("SELECT P.CIF FROM PEDIDOC P WHERE P.NumeroPedido = 12")),
              QStringLiteral("B12345678"));
    // A purchase order line keeps what it was received against.
    sql(QStringLiteral("INSERT INTO LPEDIDOC (NumeroPedido, Linea, CodigoArticulo, "
                       "Cantidad, CodigoObra) VALUES ('12', '1', 'LADR-01', '500', '2401')"));
    EXPECT_EQ(
        sql(QStringLiteral("SELECT CodigoObra, Cantidad FROM LPEDIDOC WHERE NumeroPedido = 12")),
        QStringLiteral("2401|500"));
}

TEST_P(DocumentTables, ReceiptLinesRatesAndReceivedInvoicesAnswerTheirKeys) {
    sql(QStringLiteral("INSERT INTO LENTRADA (NumeroEntrada, Linea, CodigoArticulo, "
                       "CodigoProveedor, NumeroLote) VALUES ('1', '1', 'CEM-42', '7', 'L-88')"));
    EXPECT_EQ(
        sql(QStringLiteral("SELECT Codigo, Nombre FROM PROVEEDR WHERE Codigo IN (SELECT DISTINCT "
                           "CodigoProveedor FROM LENTRADA  WHERE CodigoArticulo = 'CEM-42' AND "
                           "NumeroLote = 'L-88')")),
        QString());
    // Rates by quantity: the key tells two steps of one client and article apart.
    sql(QStringLiteral("INSERT INTO CLIEARTR (CodigoCliente, CodigoArticulo, CantidadDesde, "
                       "PrecioVenta) VALUES ('3', 'CEM-42', '0', '8.5')"));
    sql(QStringLiteral("INSERT INTO CLIEARTR (CodigoCliente, CodigoArticulo, CantidadDesde, "
                       "PrecioVenta) VALUES ('3', 'CEM-42', '100', '7.9')"));
    const CliRun twice = test::Ejecutar(
        {QStringLiteral("sql"), QStringLiteral("--dir"), dir_.path(), QStringLiteral("--opciones"),
         QStringLiteral("Silenciosa"),
         QStringLiteral("INSERT INTO CLIEARTR (CodigoCliente, CodigoArticulo, CantidadDesde) "
                        "VALUES ('3', 'CEM-42', '100')")});
    EXPECT_EQ(twice.status, 1) << "the same step twice breaks the key";
    EXPECT_EQ(sql(QStringLiteral("SELECT PrecioVenta FROM CLIEARTR WHERE CodigoCliente = 3 AND "
                                 "CodigoArticulo = 'CEM-42' AND CantidadDesde <= 150 "
                                 "ORDER BY CantidadDesde DESC")),
              QStringLiteral("7,9\r\n8,5"));
    // The earlier split of a document is found by entry and account.
    sql(QStringLiteral(
        "INSERT INTO RECIBIDA (Ejercicio, NumeroDocumento, NumeroAsiento, "
        "CodigoCuenta, SuFactura) VALUES ('2026', '31', '415', '6000001', 'F-2026/77')"));
    EXPECT_EQ(sql(QStringLiteral("SELECT NumeroDocumento, SuFactura FROM RECIBIDA WHERE "
                                 "NumeroAsiento = 415 AND CodigoCuenta = '6000001'")),
              QStringLiteral("31|F-2026/77"));
}

CO_ON_BOTH_BACKENDS(DocumentTables);

} // namespace
} // namespace co
