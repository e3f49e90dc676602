// Names of temporary tables through NOMBTTEM, on both back-ends: first and
// following allocations, long owners, numbers, users and programs, bad input,
// several sessions and several processes asking at once, and the creation of a
// temporary table from its definition.
#include "core/installation.h"
#include "temporary_tables_fixture.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>
#include <thread>

namespace co {
namespace {

using test::TemporaryTablesTest;

class NombresTemporales : public TemporaryTablesTest {};

TEST_P(NombresTemporales, FirstAllocationOnAnEmptyTable) {
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM")), QStringLiteral("0"));
    EXPECT_EQ(nombre(QStringLiteral("fOBRALIS")), QStringLiteral("TEMP000001_fOBRALIS"));
    const QString largo =
        QStringLiteral("TEMP_") + IdentificadorMaquina() + QStringLiteral("_fOBRALIS_0_1_ADMIN");
    EXPECT_EQ(general(QStringLiteral("SELECT Contador, NombreTablaTemporalOrg, NombreTablaTemporal "
                                     "FROM NOMBTTEM")),
              QStringLiteral("1|") + largo + QStringLiteral("|TEMP000001_fOBRALIS"));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(NombresTemporales, MachineIdIsTwelveHexDigitsAndStable) {
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[0-9A-F]{12}$"))
                    .match(IdentificadorMaquina())
                    .hasMatch())
        << IdentificadorMaquina().toStdString();
    EXPECT_EQ(IdentificadorMaquina(), IdentificadorMaquina());
}

TEST_P(NombresTemporales, LongOwnersAreCutAndStillDifferByNumber) {
    const QString a = nombre(QStringLiteral("fOBRALISTADOPARTESTRABAJO"));
    const QString b = nombre(QStringLiteral("fOBRALISTADOPARTESTRABAJOS"));
    EXPECT_EQ(a, QStringLiteral("TEMP000001_fOBRALIST"));
    EXPECT_EQ(b, QStringLiteral("TEMP000002_fOBRALIST"));
    // The long names keep the whole owner, so each owner keeps its own table.
    EXPECT_EQ(nombre(QStringLiteral("fOBRALISTADOPARTESTRABAJO")), a);
    EXPECT_EQ(nombre(QStringLiteral("fOBRALISTADOPARTESTRABAJOS")), b);
}

TEST_P(NombresTemporales, ALongNameKeepsItsShortNameForEver) {
    const QString primero = nombre(QStringLiteral("fOBRARESU"), 2);
    nombre(QStringLiteral("fOBRAANAL"));
    EXPECT_EQ(nombre(QStringLiteral("fOBRARESU"), 2), primero);
    // A new session of the same user on the same machine finds it too.
    TModuloDatos otros(*sesion_);
    QString visto;
    ASSERT_TRUE(NombreTablaTemporal(otros, QStringLiteral("fOBRARESU"), 2, &visto));
    EXPECT_EQ(visto, primero);
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM")), QStringLiteral("2"));
}

TEST_P(NombresTemporales, NumberUserAndProgramEachMakeAnotherTable) {
    const QString base = nombre(QStringLiteral("fOBRALIS"));
    const QString dos = nombre(QStringLiteral("fOBRALIS"), 2);
    const QString tres = nombre(QStringLiteral("fOBRALIS"), 3);
    sesion_->CodigoUsuario = QStringLiteral("MARIA");
    const QString otroUsuario = nombre(QStringLiteral("fOBRALIS"));
    FijarNumeroPrograma(7);
    const QString otroPrograma = nombre(QStringLiteral("fOBRALIS"));
    EXPECT_EQ(QSet<QString>({base, dos, tres, otroUsuario, otroPrograma}).size(), 5);
    EXPECT_EQ(general(QStringLiteral("SELECT NombreTablaTemporal FROM NOMBTTEM WHERE "
                                     "NombreTablaTemporalOrg LIKE '%_fOBRALIS_0_7_MARIA'")),
              otroPrograma);
}

TEST_P(NombresTemporales, AnEmptyOwnerIsUnknown) {
    EXPECT_EQ(nombre(QString()), QStringLiteral("TEMP000001_Unknown"));
    EXPECT_EQ(nombre(QStringLiteral("  ")), QStringLiteral("TEMP000001_Unknown"));
    EXPECT_EQ(NombreLargoTemporal({}, 4, QStringLiteral("ADMIN")),
              QStringLiteral("TEMP_") + IdentificadorMaquina() +
                  QStringLiteral("_Unknown_4_1_ADMIN"));
}

TEST_P(NombresTemporales, OddOwnerNamesMakeUsableTablesAndKeepTheirLongName) {
    const QString propietario = QStringLiteral("f O'BRA-ñ");
    const QString corto = nombre(propietario);
    EXPECT_EQ(corto, QStringLiteral("TEMP000001_f_O_BRA__"));
    EXPECT_TRUE(general(QStringLiteral("SELECT NombreTablaTemporalOrg FROM NOMBTTEM"))
                    .contains(QStringLiteral("_f O'BRA-ñ_0_")));
    QString tabla, motivo;
    ASSERT_TRUE(CrearTablaTemporal(*datos_, *creador_, propietario,
                                   QStringLiteral("Tabla Temporal\r\n/C/1/Clave/ftInteger/0/*"),
                                   &tabla, &motivo))
        << motivo.toStdString();
    EXPECT_EQ(tabla, corto);
    EXPECT_TRUE(existe(corto));
}

TEST_P(NombresTemporales, TheCounterFollowsTheHighestOneAndGrowsPastSixDigits) {
    general(QStringLiteral("INSERT INTO NOMBTTEM VALUES (41, 'TEMP_x_a_0_1_B', 'TEMP000041_a')"));
    EXPECT_EQ(nombre(QStringLiteral("fA")), QStringLiteral("TEMP000042_fA"));
    general(
        QStringLiteral("INSERT INTO NOMBTTEM VALUES (999999, 'TEMP_x_b_0_1_B', 'TEMP999999_b')"));
    EXPECT_EQ(nombre(QStringLiteral("fOBRALISTADOS")), QStringLiteral("TEMP1000000_fOBRALIS"));
}

TEST_P(NombresTemporales, ALongNameWiderThanItsColumnIsRefused) {
    QString n = QStringLiteral("sin tocar"), motivo;
    EXPECT_FALSE(NombreTablaTemporal(*datos_, QString(140, u'f'), 0, &n, &motivo));
    EXPECT_TRUE(motivo.startsWith(QStringLiteral("El nombre de la tabla temporal \"TEMP_")))
        << motivo.toStdString();
    EXPECT_TRUE(motivo.endsWith(QStringLiteral("supera los 150 caracteres.")));
    EXPECT_EQ(n, QStringLiteral("sin tocar"));
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM")), QStringLiteral("0"));
}

TEST_P(NombresTemporales, AFailureOtherThanATakenNumberStopsTheLoop) {
    // A NOMBTTEM that no INSERT of three values fits: the allocation must end.
    general(QStringLiteral("DROP TABLE NOMBTTEM"));
    general(QStringLiteral("CREATE TABLE NOMBTTEM (Contador INTEGER NOT NULL PRIMARY KEY, "
                           "NombreTablaTemporalOrg VARCHAR(150), NombreTablaTemporal VARCHAR(20), "
                           "Otro INTEGER NOT NULL)"));
    QString n, motivo;
    EXPECT_FALSE(NombreTablaTemporal(*datos_, QStringLiteral("fOBRALIS"), 0, &n, &motivo));
    EXPECT_FALSE(motivo.isEmpty());
    EXPECT_TRUE(n.isEmpty());
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM")), QStringLiteral("0"));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(NombresTemporales, AMissingNombttemIsMadeOnFirstUse) {
    general(QStringLiteral("DROP TABLE NOMBTTEM"));
    EXPECT_EQ(nombre(QStringLiteral("fOBRALIS")), QStringLiteral("TEMP000001_fOBRALIS"));
}

// ---- several sessions and processes at once ---------------------------------

// Allocates one name per owner on a session of its own, as another user would.
QStringList asignarEnSesion(const InstallationSettings &settings, const QStringList &propietarios,
                            const QString &usuario, QString *fallo) {
    test::SesionConTablas otra(settings, fallo);
    QStringList nombres;
    if (!otra.datos)
        return nombres;
    otra.sesion->CodigoUsuario = usuario;
    for (const QString &p : propietarios) {
        QString n;
        if (!NombreTablaTemporal(*otra.datos, p, 0, &n, fallo))
            return nombres;
        nombres << n;
    }
    return nombres;
}

QStringList propietarios(const QString &prefijo, int n) {
    QStringList out;
    for (int i = 0; i < n; ++i)
        out << prefijo + QString::number(i);
    return out;
}

TEST_P(NombresTemporales, TwoSessionsAtOnceNeverGetTheSameName) {
    constexpr int kNombres = 30;
    QStringList a, b;
    QString falloA, falloB;
    std::thread ta([&] {
        a = asignarEnSesion(settings_, propietarios(QStringLiteral("fA"), kNombres),
                            QStringLiteral("ANA"), &falloA);
    });
    std::thread tb([&] {
        b = asignarEnSesion(settings_, propietarios(QStringLiteral("fB"), kNombres),
                            QStringLiteral("BEA"), &falloB);
    });
    ta.join();
    tb.join();
    ASSERT_EQ(a.size(), kNombres) << falloA.toStdString();
    ASSERT_EQ(b.size(), kNombres) << falloB.toStdString();
    EXPECT_EQ(QSet<QString>(a.begin(), a.end()).unite(QSet<QString>(b.begin(), b.end())).size(),
              2 * kNombres);
    EXPECT_EQ(
        general(QStringLiteral("SELECT COUNT(*), MIN(Contador), MAX(Contador) FROM NOMBTTEM")),
        QStringLiteral("60|1|60"));
}

TEST_P(NombresTemporales, TwoRunsOfOneUserAtOnceAgreeOnEachName) {
    constexpr int kNombres = 30;
    const QStringList mismos = propietarios(QStringLiteral("fMISMO"), kNombres);
    QStringList a, b;
    QString falloA, falloB;
    std::thread ta([&] { a = asignarEnSesion(settings_, mismos, QStringLiteral("ANA"), &falloA); });
    std::thread tb([&] { b = asignarEnSesion(settings_, mismos, QStringLiteral("ANA"), &falloB); });
    ta.join();
    tb.join();
    ASSERT_EQ(a.size(), kNombres) << falloA.toStdString();
    EXPECT_EQ(a, b) << falloB.toStdString();
    EXPECT_EQ(QSet<QString>(a.begin(), a.end()).size(), kNombres);
    // Later asks agree with what both were given.
    sesion_->CodigoUsuario = QStringLiteral("ANA");
    for (int i = 0; i < kNombres; ++i)
        EXPECT_EQ(nombre(mismos[i]), a[i]);
}

// The child side of the process test: allocates the names the parent asks for.
void hijoAsignaNombres(const QString &encargo) {
    const QStringList partes = encargo.split(u'|');
    ASSERT_EQ(partes.size(), 4);
    InstallationSettings settings;
    ASSERT_TRUE(LeerInstalacion(partes[0], &settings));
    QString fallo;
    const QStringList nombres =
        asignarEnSesion(settings, propietarios(partes[1], partes[2].toInt()), partes[1], &fallo);
    QFile salida(partes[3]);
    ASSERT_TRUE(salida.open(QIODevice::WriteOnly));
    salida.write((nombres.join(u'\n') + (fallo.isEmpty() ? QString() : u'\n' + fallo)).toUtf8());
}

TEST_P(NombresTemporales, TwoProcessesAtOnceNeverGetTheSameName) {
    if (qEnvironmentVariableIsSet("CO_NOMBRES_HIJO")) {
        hijoAsignaNombres(qEnvironmentVariable("CO_NOMBRES_HIJO"));
        return;
    }
    constexpr int kNombres = 30;
    ASSERT_TRUE(EscribirInstalacion(dir_.path(), settings_));
    const QString filtro =
        QStringLiteral("--gtest_filter=") +
        QString::fromUtf8(
            ::testing::UnitTest::GetInstance()->current_test_info()->test_suite_name()) +
        u'.' + QString::fromUtf8(::testing::UnitTest::GetInstance()->current_test_info()->name());
    auto lanzar = [&](const QString &prefijo) {
        auto *p = new QProcess;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("CO_NOMBRES_HIJO"),
                   QStringList{dir_.path(), prefijo, QString::number(kNombres),
                               dir_.filePath(prefijo + QStringLiteral(".txt"))}
                       .join(u'|'));
        p->setProcessEnvironment(env);
        p->start(QCoreApplication::applicationFilePath(), {filtro});
        return p;
    };
    QProcess *a = lanzar(QStringLiteral("fPA"));
    QProcess *b = lanzar(QStringLiteral("fPB"));
    ASSERT_TRUE(a->waitForFinished(180000));
    ASSERT_TRUE(b->waitForFinished(180000));
    EXPECT_EQ(a->exitCode(), 0) << a->readAllStandardOutput().toStdString();
    EXPECT_EQ(b->exitCode(), 0) << b->readAllStandardOutput().toStdString();
    delete a;
    delete b;
    QSet<QString> todos;
    for (const QString &prefijo : {QStringLiteral("fPA"), QStringLiteral("fPB")}) {
        QFile f(dir_.filePath(prefijo + QStringLiteral(".txt")));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        const QStringList nombres = QString::fromUtf8(f.readAll()).split(u'\n');
        ASSERT_EQ(nombres.size(), kNombres) << nombres.join(u'\n').toStdString();
        for (const QString &n : nombres) {
            EXPECT_TRUE(n.startsWith(QStringLiteral("TEMP")) && n.contains(u'_' + prefijo))
                << n.toStdString();
            todos.insert(n);
        }
    }
    EXPECT_EQ(todos.size(), 2 * kNombres);
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM")), QStringLiteral("60"));
}

CO_ON_BOTH_BACKENDS(NombresTemporales);

// ---- creation from a temporary definition ------------------------------------

class CreacionTemporal : public TemporaryTablesTest {
protected:
    QString crear(const QString &propietario, const QString &definicion) {
        QString tabla, motivo;
        EXPECT_TRUE(
            CrearTablaTemporal(*datos_, *creador_, propietario, definicion, &tabla, &motivo))
            << motivo.toStdString();
        return tabla;
    }
};

const QString kDefinicion2 = QStringLiteral(
    "Tabla Temporal 2\r\n/C/1/NumeroFactura/ftInteger/0/*/\r\n/C/2/Linea/ftSmallint/0/*/\r\n"
    "/C/3/LineaMemo/ftSmallint/0/*/\r\n/C/4/CodigoCapitulo/ftInteger/0/\r\n");
const QString kDefinicion3 = QStringLiteral(
    "Tabla Temporal 3\r\n/C/1/Clave/ftString/40/*\r\n/C/2/Descripcion/ftString/200/\r\n");

TEST_P(CreacionTemporal, NumberedDefinitionsOfOneFormMakeTwoTables) {
    const QString dos = crear(QStringLiteral("fOBRAFACT"), kDefinicion2);
    const QString tres = crear(QStringLiteral("fOBRAFACT"), kDefinicion3);
    EXPECT_NE(dos, tres);
    EXPECT_EQ(dos, nombre(QStringLiteral("fOBRAFACT"), 2));
    EXPECT_EQ(tres, nombre(QStringLiteral("fOBRAFACT"), 3));
    general(QStringLiteral("INSERT INTO ") + dos +
            QStringLiteral(" (NumeroFactura, Linea, LineaMemo) VALUES ('1', '1', '0')"));
    general(QStringLiteral("INSERT INTO ") + tres +
            QStringLiteral(" (Clave, Descripcion) VALUES ('A', 'Uno')"));
    EXPECT_EQ(datos_->ClavePrimaria(dos), QStringLiteral("NumeroFactura;Linea;LineaMemo"));
    EXPECT_EQ(general(QStringLiteral("SELECT Clave, Descripcion FROM ") + tres),
              QStringLiteral("A|Uno"));
}

TEST_P(CreacionTemporal, EachUseMakesTheTableAnew) {
    const QString tabla = crear(QStringLiteral("fOBRALIS"), kDefinicion3);
    general(QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (Clave) VALUES ('A')"));
    // Same table, now completed at run time with another column.
    EXPECT_EQ(crear(QStringLiteral("fOBRALIS"),
                    kDefinicion3 + QStringLiteral("/C/3/Importe/ftFloat/0/\r\n")),
              tabla);
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM ") + tabla), QStringLiteral("0"));
    general(QStringLiteral("INSERT INTO ") + tabla +
            QStringLiteral(" (Clave, Importe) VALUES ('B', '2.5')"));
    EXPECT_EQ(general(QStringLiteral("SELECT Clave, Importe FROM ") + tabla),
              QStringLiteral("B|2,5"));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(CreacionTemporal, ATableMadeOnTheGeneralDataIsFilledFromCompanyStatements) {
    ok(QStringLiteral("CREATE TABLE ORIGEN (Codigo INTEGER, Nombre VARCHAR(40))"));
    ok(QStringLiteral("INSERT INTO ORIGEN VALUES ('1', 'Nave'), ('2', 'Muelle')"));
    const QString tabla = crear(QStringLiteral("fOBRALIS"), kDefinicion3);
    const QString cualificada = settings_.AliasBaseDatosGeneral + QStringLiteral(".dbo.") + tabla;
    ok(QStringLiteral("INSERT INTO ") + cualificada +
       QStringLiteral(" (Clave, Descripcion) SELECT Codigo, Nombre FROM ORIGEN"));
    EXPECT_EQ(general(QStringLiteral("SELECT Clave, Descripcion FROM ") + tabla +
                      QStringLiteral(" ORDER BY Clave")),
              QStringLiteral("1|Nave\r\n2|Muelle"));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM ") + cualificada), QStringLiteral("2"));
}

TEST_P(CreacionTemporal, ANewShapeIsSeenAtOnceFromTheCompanyConnection) {
    const QString tabla = crear(QStringLiteral("fOBRALIS"), kDefinicion3);
    const QString cualificada = settings_.AliasBaseDatosGeneral + QStringLiteral(".dbo.") + tabla;
    // The company connection fills and reads the table in its first shape...
    ok(QStringLiteral("INSERT INTO ") + cualificada + QStringLiteral(" SELECT 'A', 'Uno'"));
    EXPECT_EQ(ok(QStringLiteral("SELECT * FROM ") + cualificada), QStringLiteral("A|Uno"));
    // ...and then fills it, positionally, in each new one.
    crear(QStringLiteral("fOBRALIS"), kDefinicion3 + QStringLiteral("/C/3/Importe/ftFloat/0/\r\n"));
    ok(QStringLiteral("INSERT INTO ") + cualificada + QStringLiteral(" SELECT 'B', 'Dos', 3"));
    EXPECT_EQ(ok(QStringLiteral("SELECT * FROM ") + cualificada), QStringLiteral("B|Dos|3"));
    crear(QStringLiteral("fOBRALIS"),
          QStringLiteral("Tabla Temporal 3\r\n/C/1/Clave/ftString/40/*\r\n"));
    ok(QStringLiteral("INSERT INTO ") + cualificada + QStringLiteral(" SELECT 'C'"));
    EXPECT_EQ(general(QStringLiteral("SELECT * FROM ") + tabla), QStringLiteral("C"));
}

TEST_P(CreacionTemporal, ADefinitionThatIsNotTemporaryIsRefused) {
    QString tabla, motivo;
    EXPECT_FALSE(CrearTablaTemporal(*datos_, *creador_, QStringLiteral("fOBRALIS"),
                                    QStringLiteral("OBRA/C/1/Codigo/ftInteger/0/*"), &tabla,
                                    &motivo));
    EXPECT_EQ(motivo, QStringLiteral("La definición no es de una tabla temporal: debe empezar por "
                                     "la línea \"Tabla Temporal\"."));
    EXPECT_TRUE(tabla.isEmpty());
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM")), QStringLiteral("0"));
}

TEST_P(CreacionTemporal, ABadDefinitionLeavesTheOldTableInPlace) {
    const QString tabla = crear(QStringLiteral("fOBRALIS"), kDefinicion3);
    general(QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (Clave) VALUES ('A')"));
    QString motivo;
    EXPECT_FALSE(CrearTablaTemporal(*datos_, *creador_, QStringLiteral("fOBRALIS"),
                                    kDefinicion3 + QStringLiteral("/C/3/Raro/ftNada/0/\r\n"),
                                    nullptr, &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("ftNada"))) << motivo.toStdString();
    EXPECT_EQ(general(QStringLiteral("SELECT Clave FROM ") + tabla), QStringLiteral("A"));
}

CO_ON_BOTH_BACKENDS(CreacionTemporal);

} // namespace
} // namespace co
