// The demo company through the statement layer on both back-ends: what it
// writes holds together (codes, references, sizes, prices), a seed fixes it,
// and a company with data is refused untouched.
#include "demo/bank_codes.h"
#include "demo/demo_company.h"
#include "demo/spanish_places.h"
#include "demo/table_digest.h"
#include "demo/tax_codes.h"
#include "support/layer_fixture.h"

#include <QFile>
#include <gtest/gtest.h>

namespace co::demo {
namespace {

constexpr double kEscalaPrueba = 0.03; // the first working week or so of the year

QString estructuras() {
    QFile f(QStringLiteral(CO_SOURCE_DIR "/data/DATABASE.TXT"));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    return QString::fromLatin1(f.readAll());
}

// A figure of a result text, which writes a decimal comma.
double cifra(const QString &texto) {
    return QString(texto).replace(u',', u'.').toDouble();
}

// Rows of a statement's result text.
QStringList filas(const QString &resultado) {
    return resultado.isEmpty() ? QStringList() : resultado.split(QStringLiteral("\r\n"));
}

class EmpresaDemo : public test::TablesOnDemandTest {
protected:
    bool crear(std::uint64_t semilla, bool forzar = false, double escala = kEscalaPrueba,
               QString *motivo = nullptr) {
        OpcionesDemo o;
        o.semilla = semilla;
        o.forzar = forzar;
        o.escala = escala;
        QString propio;
        const bool hecho = CrearEmpresaDemo(*datos_, o, &recuento_, motivo ? motivo : &propio);
        if (!hecho && !motivo)
            ADD_FAILURE() << propio.toStdString();
        return hecho;
    }
    QString huella() {
        QString motivo;
        const QString h = HuellaTablas(*datos_, estructuras(), TablasDemo(), &motivo);
        EXPECT_FALSE(h.isEmpty()) << motivo.toStdString();
        return h;
    }
    int contar(const QString &sql) { return ok(sql).trimmed().toInt(); }

    RecuentoPartes recuento_;
};

TEST_P(EmpresaDemo, WritesARealLookingContractor) {
    ASSERT_TRUE(crear(11));
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM CLIENTE")), 40);
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM PROVEEDR")), 25);
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM OPERARIO")), 30);
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM ARTICULO")), 200);
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM OBRA")), 15);
    for (const QString &s :
         {QStringLiteral("Abierta"), QStringLiteral("Cerrada"), QStringLiteral("Rechazada")})
        EXPECT_GT(contar(QStringLiteral("SELECT COUNT(*) FROM OBRA WHERE Situacion = '%1'").arg(s)),
                  0)
            << s.toStdString();
    // Closed works carry their end date; chapters use the masculine words.
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM OBRA WHERE Situacion = 'Cerrada' AND "
                                    "FechaFinalizacion < '2000-01-01'")),
              0);
    EXPECT_EQ(
        contar(QStringLiteral("SELECT COUNT(*) FROM CAPITULO WHERE Situacion NOT IN ('Abierto', "
                              "'Cerrado', 'Rechazado')")),
        0);
    // Every works has safety and waste chapters, as Spanish budgets must.
    EXPECT_EQ(contar(QStringLiteral(
                  "SELECT COUNT(*) FROM CAPITULO WHERE Descripcion = 'Seguridad y salud'")),
              15);
    EXPECT_EQ(contar(QStringLiteral(
                  "SELECT COUNT(*) FROM CAPITULO WHERE Descripcion = 'Gestión de residuos'")),
              15);
    // VAT and surcharge in force, the euro as base currency with two decimals.
    EXPECT_EQ(ok(QStringLiteral("SELECT Iva1, Iva2, Iva3, Recargo1, Recargo2, Recargo3, "
                                "CodigoMonedaBase FROM PARAGENE"))
                  .replace(u',', u'.'),
              QStringLiteral("21|10|4|5.2|1.4|0.5|1"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Descripcion, Decimales FROM MONEDA WHERE Codigo = 1")),
              QStringLiteral("Euro|2"));
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM MONEDA")), 2);
    // Reports of each kind, some incidents, some without chapter, a few invoiced.
    for (const QString &t : {QStringLiteral("PARTEOB"), QStringLiteral("PARMATOB"),
                             QStringLiteral("PARMAQOB"), QStringLiteral("LMULTPOB")})
        EXPECT_GT(contar(QStringLiteral("SELECT COUNT(*) FROM ") + t), 0) << t.toStdString();
    EXPECT_GT(
        contar(QStringLiteral(
            "SELECT COUNT(*) FROM PARTEOB WHERE Tipo = 'Incidencia' AND CodigoIncidencia > 0")),
        0);
    EXPECT_GT(contar(QStringLiteral("SELECT COUNT(*) FROM PARTEOB WHERE CodigoCapitulo = 0")), 0);
    EXPECT_EQ(
        contar(QStringLiteral(
            "SELECT COUNT(*) FROM PARTEOB WHERE Tipo = 'Productivo' AND CodigoIncidencia <> 0")),
        0);
    EXPECT_EQ(recuento_.filas.value(QStringLiteral("PARTEOB")),
              contar(QStringLiteral("SELECT COUNT(*) FROM PARTEOB")));
    EXPECT_TRUE(sesion_->NombreEmpresa.endsWith(QStringLiteral(", S.L.")))
        << sesion_->NombreEmpresa.toStdString();
}

TEST_P(EmpresaDemo, TaxCodesAndBankAccountsPassTheirChecks) {
    ASSERT_TRUE(crear(12));
    int cuentas = 0;
    for (const QString &tabla : {QStringLiteral("CLIENTE"), QStringLiteral("PROVEEDR")}) {
        for (const QString &fila :
             filas(ok(QStringLiteral("SELECT CIF, CodigoEntidad, CodigoSucursal, DigitosControl, "
                                     "NumeroCuenta, CodigoPostal, Provincia FROM ") +
                      tabla))) {
            const QStringList c = fila.split(u'|');
            SCOPED_TRACE(fila.toStdString());
            EXPECT_TRUE(CodigoFiscalValido(c.at(0)));
            EXPECT_TRUE(CCCValido(c.at(1), c.at(2), c.at(3), c.at(4)));
            const Provincia *p = ProvinciaDeCodigoPostal(c.at(5));
            ASSERT_NE(p, nullptr);
            EXPECT_EQ(p->nombre, c.at(6));
            ++cuentas;
        }
    }
    EXPECT_EQ(cuentas, 65);
    for (const QString &fila :
         filas(ok(QStringLiteral("SELECT CodigoIBAN, CodigoEntidad, CodigoSucursal, "
                                 "DigitosControl, NumeroCuenta FROM CLIENTE")))) {
        const QStringList c = fila.split(u'|');
        EXPECT_TRUE(IBANValido(c.at(0))) << fila.toStdString();
        EXPECT_EQ(c.at(0), IBANDeCCC(c.at(1) + c.at(2) + c.at(3) + c.at(4)));
    }
    const QStringList empresa =
        ok(QStringLiteral("SELECT CIF, CodigoPostal, Provincia FROM PARAGENE")).split(u'|');
    EXPECT_TRUE(CIFValido(empresa.at(0)));
    EXPECT_EQ(ProvinciaDeCodigoPostal(empresa.at(1))->nombre, empresa.at(2));
    for (const QString &fila :
         filas(ok(QStringLiteral("SELECT CodigoPostal, Provincia FROM OBRA"))))
        EXPECT_EQ(ProvinciaDeCodigoPostal(fila.section(u'|', 0, 0))->nombre, fila.section(u'|', 1))
            << fila.toStdString();
}

// Each pair: a statement counting rows whose code names no row.
TEST_P(EmpresaDemo, EveryCodeNamesAnExistingRow) {
    ASSERT_TRUE(crear(13));
    const QStringList huerfanos{
        "SELECT COUNT(*) FROM CLIENTE C WHERE NOT EXISTS (SELECT 1 FROM FPAGO F WHERE F.Codigo = "
        "C.CodigoFPago)",
        "SELECT COUNT(*) FROM CLIENTE C WHERE NOT EXISTS (SELECT 1 FROM ENTIDAD E WHERE "
        "E.CodigoEntidad = "
        "C.CodigoEntidad AND E.CodigoSucursal = C.CodigoSucursal)",
        "SELECT COUNT(*) FROM CLIENTE C WHERE NOT EXISTS (SELECT 1 FROM MONEDA M WHERE M.Codigo = "
        "C.CodigoMoneda)",
        "SELECT COUNT(*) FROM PROVEEDR C WHERE NOT EXISTS (SELECT 1 FROM FPAGO F WHERE F.Codigo = "
        "C.CodigoFPago)",
        "SELECT COUNT(*) FROM PROVEEDR C WHERE NOT EXISTS (SELECT 1 FROM ENTIDAD E WHERE "
        "E.CodigoEntidad = "
        "C.CodigoEntidad AND E.CodigoSucursal = C.CodigoSucursal)",
        "SELECT COUNT(*) FROM OPERARIO O WHERE NOT EXISTS (SELECT 1 FROM CATEGORI C WHERE C.Codigo "
        "= O.CodigoCategoria)",
        "SELECT COUNT(*) FROM OPERARIO O WHERE NOT EXISTS (SELECT 1 FROM CALENDAR C WHERE C.Codigo "
        "= O.CodigoCalendario)",
        "SELECT COUNT(*) FROM TARFOPOB T WHERE NOT EXISTS (SELECT 1 FROM OPERARIO O WHERE O.Codigo "
        "= T.CodigoOperario)",
        "SELECT COUNT(*) FROM CALENOPE T WHERE NOT EXISTS (SELECT 1 FROM OPERARIO O WHERE O.Codigo "
        "= T.CodigoOperario)",
        "SELECT COUNT(*) FROM OPERARIO O WHERE NOT EXISTS (SELECT 1 FROM TARFOPOB T WHERE O.Codigo "
        "= T.CodigoOperario)",
        "SELECT COUNT(*) FROM SUBCONTR S WHERE NOT EXISTS (SELECT 1 FROM PROVEEDR P WHERE P.Codigo "
        "= S.CodigoProveedor)",
        "SELECT COUNT(*) FROM ARTICULO A WHERE NOT EXISTS (SELECT 1 FROM PROVEEDR P WHERE P.Codigo "
        "= A.CodigoProveedor)",
        "SELECT COUNT(*) FROM GRANTAB G WHERE NOT EXISTS (SELECT 1 FROM GRANALIS A WHERE A.Codigo "
        "= G.GrupoAnalisis)",
        "SELECT COUNT(*) FROM GRANTAB G WHERE NOT EXISTS (SELECT 1 FROM ARTICULO A WHERE A.Codigo "
        "= G.ClaveTabla)",
        "SELECT COUNT(*) FROM TARIFA T WHERE NOT EXISTS (SELECT 1 FROM ARTICULO A WHERE A.Codigo = "
        "T.CodigoArticulo)",
        "SELECT COUNT(*) FROM LTARFMAQ L WHERE NOT EXISTS (SELECT 1 FROM TARFMAQ T WHERE T.Codigo "
        "= L.Codigo)",
        "SELECT COUNT(*) FROM LTARFMAQ L WHERE NOT EXISTS (SELECT 1 FROM UNIDADOB U WHERE U.Codigo "
        "= L.CodigoUnidad)",
        "SELECT COUNT(*) FROM OBRA O WHERE NOT EXISTS (SELECT 1 FROM CLIENTE C WHERE C.Codigo = "
        "O.CodigoCliente)",
        "SELECT COUNT(*) FROM OBRA O WHERE NOT EXISTS (SELECT 1 FROM OPERARIO C WHERE C.Codigo = "
        "O.CodigoEncargado)",
        "SELECT COUNT(*) FROM OBRA O WHERE NOT EXISTS (SELECT 1 FROM TARFMAQ T WHERE T.Codigo = "
        "O.NumeroTarifa)",
        "SELECT COUNT(*) FROM OBRA O WHERE NOT EXISTS (SELECT 1 FROM MONEDA M WHERE M.Codigo = "
        "O.CodigoMoneda)",
        "SELECT COUNT(*) FROM OBRA O WHERE NOT EXISTS (SELECT 1 FROM CLIENTE C WHERE C.Codigo = "
        "O.CodigoCliente "
        "AND C.CIF = O.CIF AND C.Nombre = O.NombreCliente)",
        "SELECT COUNT(*) FROM CAPITULO C WHERE NOT EXISTS (SELECT 1 FROM OBRA O WHERE O.Codigo = "
        "C.CodigoObra)",
        "SELECT COUNT(*) FROM PARTIDA P WHERE NOT EXISTS (SELECT 1 FROM CAPITULO C WHERE "
        "C.CodigoObra = P.CodigoObra "
        "AND C.CodigoCapitulo = P.CodigoCapitulo)",
        "SELECT COUNT(*) FROM PARTIDA P WHERE NOT EXISTS (SELECT 1 FROM UNIDADOB U WHERE U.Codigo "
        "= P.CodigoPartida)",
        // A budget line takes the prices of the works' rate list.
        "SELECT COUNT(*) FROM PARTIDA P JOIN OBRA O ON O.Codigo = P.CodigoObra WHERE NOT EXISTS "
        "(SELECT 1 FROM "
        "LTARFMAQ L WHERE L.Codigo = O.NumeroTarifa AND L.CodigoUnidad = P.CodigoPartida AND "
        "L.PrecioVenta = "
        "P.PrecioUVenta AND L.PrecioCosto = P.PrecioUCosto)",
        "SELECT COUNT(*) FROM PARTEOB P WHERE NOT EXISTS (SELECT 1 FROM OPERARIO O WHERE O.Codigo "
        "= P.CodigoOperario)",
        "SELECT COUNT(*) FROM PARMAQOB P WHERE NOT EXISTS (SELECT 1 FROM MAQUINOB M WHERE M.Codigo "
        "= P.CodigoMaquina)",
        "SELECT COUNT(*) FROM PARMAQOB P WHERE P.CodigoOperario <> 0 AND NOT EXISTS (SELECT 1 FROM "
        "OPERARIO O WHERE "
        "O.Codigo = P.CodigoOperario)",
        "SELECT COUNT(*) FROM PARMATOB P WHERE NOT EXISTS (SELECT 1 FROM ARTICULO A WHERE A.Codigo "
        "= P.CodigoMaterial)",
        "SELECT COUNT(*) FROM PARMATOB P WHERE P.CodigoProveedor <> 0 AND NOT EXISTS (SELECT 1 "
        "FROM PROVEEDR O WHERE "
        "O.Codigo = P.CodigoProveedor)",
        "SELECT COUNT(*) FROM PARMATOB P WHERE NOT EXISTS (SELECT 1 FROM MOVIMTO M WHERE M.Numero "
        "= P.NumeroMovimiento "
        "AND M.TipoMovimiento = 'SOF' AND M.CodigoArticulo = P.CodigoMaterial AND M.Cantidad = "
        "P.Cantidad)",
        "SELECT COUNT(*) FROM MOVIMTO M WHERE NOT EXISTS (SELECT 1 FROM ARTICULO A WHERE A.Codigo "
        "= M.CodigoArticulo)",
        "SELECT COUNT(*) FROM PARSUBOB P WHERE NOT EXISTS (SELECT 1 FROM SUBCONTR S WHERE S.Codigo "
        "= "
        "P.CodigoSubContratacion)",
        "SELECT COUNT(*) FROM LMULTPOB L WHERE NOT EXISTS (SELECT 1 FROM MULTPOB M WHERE "
        "M.NumeroAlbaran = "
        "L.NumeroAlbaran AND M.CodigoObra = L.CodigoObra AND M.CodigoCapitulo = L.CodigoCapitulo "
        "AND M.Fecha = L.Fecha)",
        "SELECT COUNT(*) FROM LMULTPOB L WHERE L.TipoMultiParte = 'Maquina' AND NOT EXISTS (SELECT "
        "1 FROM MAQUINOB M "
        "WHERE M.Codigo = L.Codigo)",
        "SELECT COUNT(*) FROM LMULTPOB L WHERE L.TipoMultiParte = 'Material' AND NOT EXISTS "
        "(SELECT 1 FROM ARTICULO M "
        "WHERE M.Codigo = L.Codigo)",
        "SELECT COUNT(*) FROM LMULTPOB L WHERE L.TipoMultiParte = 'SubContratacion' AND NOT EXISTS "
        "(SELECT 1 FROM "
        "SUBCONTR M WHERE M.Codigo = L.Codigo)",
        "SELECT COUNT(*) FROM LMULTPOB L WHERE L.TipoMultiParte = 'Trabajo' AND NOT EXISTS (SELECT "
        "1 FROM OPERARIO O "
        "WHERE CAST(O.Codigo AS VARCHAR(30)) = L.Codigo AND O.CodigoCategoria = L.CodigoOperario)",
        "SELECT COUNT(*) FROM LMULTPOB L WHERE L.TipoMultiParte NOT IN ('Trabajo', 'Maquina', "
        "'Material', "
        "'SubContratacion')",
        "SELECT COUNT(*) FROM FACTROB F WHERE NOT EXISTS (SELECT 1 FROM OBRA O WHERE O.Codigo = "
        "F.CodigoObra AND "
        "O.CodigoCliente = F.CodigoCliente AND O.TipoFacturacion = 'Administracion')",
        "SELECT COUNT(*) FROM LFACTROB L WHERE NOT EXISTS (SELECT 1 FROM FACTROB F WHERE "
        "F.NumeroFactura = "
        "L.NumeroFactura AND F.CodigoObra = L.CodigoObra)",
    };
    for (const QString &sql : huerfanos)
        EXPECT_EQ(contar(sql), 0) << sql.toStdString();
    // Reports of every kind go to an existing works and to an existing chapter or none.
    for (const QString &t :
         {QStringLiteral("PARTEOB"), QStringLiteral("PARMATOB"), QStringLiteral("PARMAQOB"),
          QStringLiteral("PARSUBOB"), QStringLiteral("MULTPOB"), QStringLiteral("LMULTPOB")}) {
        EXPECT_EQ(
            contar(QStringLiteral(
                       "SELECT COUNT(*) FROM %1 P WHERE NOT EXISTS (SELECT 1 FROM OBRA O WHERE "
                       "O.Codigo = P.CodigoObra AND O.Situacion <> 'Rechazada')")
                       .arg(t)),
            0)
            << t.toStdString();
        EXPECT_EQ(
            contar(
                QStringLiteral(
                    "SELECT COUNT(*) FROM %1 P WHERE P.CodigoCapitulo <> 0 AND NOT EXISTS (SELECT "
                    "1 FROM CAPITULO C WHERE C.CodigoObra = P.CodigoObra AND C.CodigoCapitulo = "
                    "P.CodigoCapitulo)")
                    .arg(t)),
            0)
            << t.toStdString();
    }
    // Each invoice mark "<invoice>/<line>" is an invoice line whose origin names the report back.
    const QStringList marcas =
        filas(ok(QStringLiteral("SELECT NumeroFactura, 'PARMAQOB|' || CAST(Numero AS VARCHAR(20)) "
                                "FROM PARMAQOB WHERE NumeroFactura <> '' "
                                "UNION ALL SELECT NumeroFactura, 'PARMATOB|' || CAST(Numero AS "
                                "VARCHAR(20)) FROM PARMATOB WHERE "
                                "NumeroFactura <> ''")));
    EXPECT_FALSE(marcas.isEmpty());
    for (const QString &m : marcas) {
        const QString marca = m.section(u'|', 0, 0);
        EXPECT_EQ(
            ok(QStringLiteral("SELECT Origen FROM LFACTROB WHERE NumeroFactura = %1 AND Linea = %2")
                   .arg(marca.section(u'/', 0, 0), marca.section(u'/', 1))),
            m.section(u'|', 1))
            << m.toStdString();
    }
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM LFACTROB")), marcas.size());
}

TEST_P(EmpresaDemo, ReportsArePricedAsTheScreensPriceThem) {
    ASSERT_TRUE(crear(14));
    // Labour: the operator's period with the highest line holding the date, the field of the hour
    // type.
    const QStringList partes = filas(
        ok(QStringLiteral("SELECT P.CuotaHoraria, P.Horas, P.Importe, (SELECT CASE P.TipoHoras "
                          "WHEN 'Normal' THEN T.TarifaNormal WHEN "
                          "'Extra' THEN T.TarifaExtra WHEN 'Festivo' THEN T.TarifaFestivo WHEN "
                          "'Otros' THEN T.TarifaOtros END FROM "
                          "TARFOPOB T WHERE T.CodigoOperario = P.CodigoOperario AND T.DesdeFecha "
                          "<= P.Fecha AND T.HastaFecha >= P.Fecha "
                          "AND NOT EXISTS (SELECT 1 FROM TARFOPOB U WHERE U.CodigoOperario = "
                          "T.CodigoOperario AND U.Linea > T.Linea AND "
                          "U.DesdeFecha <= P.Fecha AND U.HastaFecha >= P.Fecha)) FROM PARTEOB P")));
    ASSERT_GT(partes.size(), 100);
    for (const QString &p : partes) {
        const QStringList v = p.split(u'|');
        ASSERT_GT(cifra(v.at(0)), 0) << p.toStdString();
        ASSERT_EQ(cifra(v.at(0)), cifra(v.at(3))) << p.toStdString();
        ASSERT_NEAR(cifra(v.at(2)), cifra(v.at(0)) * cifra(v.at(1)), 0.00501) << p.toStdString();
    }
    // Machines always at their first rate; subcontracts at their first price.
    EXPECT_EQ(contar(QStringLiteral(
                  "SELECT COUNT(*) FROM PARMAQOB P JOIN MAQUINOB M ON M.Codigo = P.CodigoMaquina "
                  "WHERE P.CuotaHoraria <> M.CuotaHoraria1")),
              0);
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM PARSUBOB P JOIN SUBCONTR S ON S.Codigo = "
                                    "P.CodigoSubContratacion WHERE P.Precio <> S.Precio1")),
              0);
    // Materials: the latest purchase receipt up to the date, else the article's price.
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM PARMATOB P JOIN ARTICULO A ON A.Codigo = "
                                    "P.CodigoMaterial WHERE P.Precio <> "
                                    "COALESCE((SELECT M.Precio FROM MOVIMTO M WHERE "
                                    "M.CodigoArticulo = P.CodigoMaterial AND "
                                    "M.TipoMovimiento = 'EC' AND M.Fecha <= P.Fecha AND NOT EXISTS "
                                    "(SELECT 1 FROM MOVIMTO N WHERE "
                                    "N.CodigoArticulo = M.CodigoArticulo AND N.TipoMovimiento = "
                                    "'EC' AND N.Fecha <= P.Fecha AND "
                                    "N.Numero > M.Numero)), A.PrecioCompra)")),
              0);
    // Reports fall on days the operator's calendar has as worked.
    EXPECT_EQ(
        contar(QStringLiteral(
            "SELECT COUNT(*) FROM PARTEOB P WHERE NOT EXISTS (SELECT 1 FROM CALENOPE C WHERE "
            "C.CodigoOperario = P.CodigoOperario AND C.Fecha = P.Fecha AND C.EsDiaTrabajado = "
            "'SI')")),
        0);
    // The calendar: Sundays are holidays, August is the holiday month.
    EXPECT_EQ(contar(QStringLiteral(
                  "SELECT COUNT(*) FROM CALENOPE WHERE Fecha >= '2025-08-01' AND Fecha <= "
                  "'2025-08-31' AND EsDiaVacaciones <> 'SI' AND EsDiaFestivo <> 'SI'")),
              0);
    EXPECT_EQ(contar(QStringLiteral(
                  "SELECT COUNT(*) FROM CALENOPE WHERE Fecha = '2025-01-06' AND EsDiaTrabajado = "
                  "'SI'")),
              0);
    EXPECT_EQ(contar(QStringLiteral(
                  "SELECT COUNT(*) FROM CALENOPE WHERE Fecha = '2025-01-11' AND EsDiaTrabajado = "
                  "'SI'")),
              0);
    EXPECT_EQ(contar(QStringLiteral(
                  "SELECT COUNT(*) FROM CALENOPE WHERE Fecha = '2025-01-12' AND EsDiaFestivo = "
                  "'SI'")),
              30);
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM CALENOPE")), 30 * 365);
}

TEST_P(EmpresaDemo, TextsFitTheirFields) {
    ASSERT_TRUE(crear(15));
    const QString definiciones = estructuras();
    const QString longitud =
        backend() == Backend::SQLite ? QStringLiteral("LENGTH") : QStringLiteral("CHAR_LENGTH");
    int revisadas = 0;
    for (const QString &tabla : TablasDemo()) {
        for (const QString &linea : definiciones.split(u'\n')) {
            const QStringList p = linea.trimmed().split(u'/');
            if (p.size() < 6 || p.at(0) != tabla || p.at(1) != u"C" || p.at(4) != u"ftString")
                continue;
            const int maximo = p.at(5).toInt();
            EXPECT_LE(contar(QStringLiteral("SELECT COALESCE(MAX(%1(%2)), 0) FROM %3")
                                 .arg(longitud, p.at(3), tabla)),
                      maximo)
                << tabla.toStdString() << "." << p.at(3).toStdString();
            ++revisadas;
        }
    }
    EXPECT_GT(revisadas, 200);
}

TEST_P(EmpresaDemo, ACompanyWithDataIsRefusedUntouchedUnlessForced) {
    ASSERT_TRUE(crear(16));
    const QString antes = huella();
    QString motivo;
    EXPECT_FALSE(crear(17, false, kEscalaPrueba, &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("ya tiene datos"))) << motivo.toStdString();
    EXPECT_TRUE(motivo.contains(QStringLiteral("--forzar"))) << motivo.toStdString();
    EXPECT_EQ(huella(), antes);
    // A row of the user's own goes with --forzar; the same seed writes the same rows again.
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES (999, 'Cliente propio')"));
    ASSERT_TRUE(crear(16, true));
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM CLIENTE WHERE Codigo = 999")), 0);
    EXPECT_EQ(huella(), antes);
}

TEST_P(EmpresaDemo, AOneTableCompanyIsRefusedToo) {
    ok(QStringLiteral("INSERT INTO OBRA (Codigo, Descripcion) VALUES (7, 'Nave')"));
    QString motivo;
    EXPECT_FALSE(crear(1, false, kEscalaPrueba, &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("OBRA"))) << motivo.toStdString();
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM CLIENTE")), 0);
    EXPECT_EQ(ok(QStringLiteral("SELECT Descripcion FROM OBRA")), QStringLiteral("Nave"));
}

TEST_P(EmpresaDemo, ScalesOutsideTheRangeAreRefusedWritingNothing) {
    for (const double escala : {0.0, -1.0, kEscalaMaxima + 1}) {
        QString motivo;
        EXPECT_FALSE(crear(1, false, escala, &motivo));
        EXPECT_TRUE(motivo.contains(QStringLiteral("escala"))) << motivo.toStdString();
    }
    EXPECT_EQ(contar(QStringLiteral("SELECT COUNT(*) FROM CLIENTE")), 0);
}

TEST_P(EmpresaDemo, TheScaleMultipliesTheReports) {
    ASSERT_TRUE(crear(18, false, 0.02));
    const qint64 uno = recuento_.FilasPartes();
    recuento_ = {};
    ASSERT_TRUE(crear(18, true, 0.04));
    const qint64 dos = recuento_.FilasPartes();
    EXPECT_GT(dos, uno * 3 / 2);
    EXPECT_LT(dos, uno * 5 / 2);
    EXPECT_EQ(dos,
              contar(QStringLiteral(
                  "SELECT (SELECT COUNT(*) FROM PARTEOB) + (SELECT COUNT(*) FROM PARMATOB) + "
                  "(SELECT COUNT(*) FROM PARMAQOB) + (SELECT COUNT(*) FROM PARSUBOB) + (SELECT "
                  "COUNT(*) FROM LMULTPOB)")));
}

CO_ON_BOTH_BACKENDS(EmpresaDemo);

// One installation of each back-end, side by side in one test.
struct Instalacion : test::InstalacionConTablas {
    using InstalacionConTablas::InstalacionConTablas;
    QString huella(std::uint64_t semilla) {
        OpcionesDemo o;
        o.semilla = semilla;
        o.escala = kEscalaPrueba;
        o.forzar = true;
        QString motivo;
        EXPECT_TRUE(CrearEmpresaDemo(datos(), o, nullptr, &motivo)) << motivo.toStdString();
        const QString h = HuellaTablas(datos(), estructuras(), TablasDemo(), &motivo);
        EXPECT_FALSE(h.isEmpty()) << motivo.toStdString();
        return h;
    }
};

TEST(EmpresaDemoEntreBasesDeDatos, TheSameSeedGivesTheSameRowsOnBothBackEnds) {
    Instalacion sqlite(Backend::SQLite);
    Instalacion postgres(Backend::PostgreSQL);
    const QString a = sqlite.huella(21);
    EXPECT_EQ(a, postgres.huella(21));
    EXPECT_NE(a, sqlite.huella(22));
    EXPECT_EQ(postgres.huella(22), sqlite.huella(22));
}

} // namespace
} // namespace co::demo
