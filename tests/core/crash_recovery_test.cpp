// The program killed with SIGKILL at random points, on both back-ends: the set-up
// of a new installation (init), the first creation of a table (sql on a table
// not made yet), a batch run statement by statement (sql --archivo) and a batch
// run in one transaction (a dictionary loaded by diccionario). After each kill
// every table of the installation is either absent or whole, with all the
// indexes of its definition; the batch in one transaction is all there or not
// at all; the batch statement by statement is a prefix of itself; and the next
// run of the program goes on from there.
//
// A kill comes at the N-th crash point of the process (CO_CRASH_AT: a point
// before each statement and around each schema transaction), N drawn from the
// points of an undisturbed run (CO_CRASH_COUNT), or after a delay drawn from
// the time of an undisturbed run. The seed is fixed; the figures are printed.
#include "core/connection_factory.h"
#include "core/crash_points.h"
#include "core/definition_text.h"
#include "core/installation.h"
#include "core/structure_files.h"
#include "core/users.h"
#include "support/cli_installation.h"
#include "support/schema_check.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <random>

namespace co {
namespace {

// Trials per kind and back-end: an undisturbed one, then the cut ones.
constexpr int kPruebas = 6;
// The first creation of a table is short and cheap to repeat: more trials, all
// of their crash points among the last ones of the run, where the creation is.
constexpr int kPruebasCreacion = 8;
const QString kEstructuras = QStringLiteral(CO_SOURCE_DIR "/data/DATABASE.TXT");

struct Corrida {
    bool muerta = false; // ended by SIGKILL
    int codigo = -1;
    QString salida;
    QString errores;
    qint64 ms = 0;
};

// Where one trial is cut: at a crash point, after a delay, or not at all.
struct Corte {
    qint64 punto = 0;
    int retardoMs = -1;
};

// What the trials of one kind hit, for the report.
struct Cifras {
    int muertas = 0;
    int enteras = 0;
    std::map<qint64, int> puntos;
    QList<int> retardos;
    qint64 puntosCorrida = 0;
    qint64 msCorrida = 0;
    QMap<QString, int> estados;

    QString texto() const {
        QStringList p;
        for (const auto &[punto, veces] : puntos)
            p << QString::number(punto) + (veces > 1 ? u'x' + QString::number(veces) : QString());
        QStringList r;
        for (int ms : retardos)
            r << QString::number(ms);
        QStringList e;
        for (auto it = estados.cbegin(); it != estados.cend(); ++it)
            e << it.key() + u'=' + QString::number(it.value());
        return QStringLiteral("muertas %1, enteras %2; corrida sin corte: %3 puntos, %4 ms; "
                              "puntos [%5]; retardos ms [%6]; estados {%7}")
            .arg(muertas)
            .arg(enteras)
            .arg(puntosCorrida)
            .arg(msCorrida)
            .arg(p.join(u' '), r.join(u' '), e.join(QStringLiteral(", ")));
    }
};

class CaidasPrograma : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        ASSERT_TRUE(LeerArchivoEstructuras(kEstructuras, &estructuras_));
        ASSERT_TRUE(cuentas_.isValid());
        rng_.seed(GetParam() == Backend::SQLite ? 20261124u : 20261125u);
    }

    void TearDown() override {
        for (const InstallationSettings &s : std::as_const(hechas_))
            test::dropInstallation(s);
    }

    // A new installation folder with its parameters written, as init finds it.
    InstallationSettings nueva(const QTemporaryDir &dir) {
        const InstallationSettings s = test::installationFolder(GetParam(), dir.path());
        hechas_ << s;
        return s;
    }

    // The installation made and entered once, for the kinds that start after
    // that: the tables a first entry makes are there, so that every trial of
    // the kind passes the same points as the undisturbed one.
    void preparar(const QTemporaryDir &dir) {
        ASSERT_TRUE(dir.isValid());
        nueva(dir);
        const Corrida r = lanzar({QStringLiteral("init"), QStringLiteral("--dir"), dir.path()}, {});
        ASSERT_EQ(r.codigo, 0) << r.errores.toStdString();
        const Corrida e = lanzar({QStringLiteral("sql"), QStringLiteral("--dir"), dir.path(),
                                  QStringLiteral("SELECT Codigo FROM EMPRESA")},
                                 {});
        ASSERT_EQ(e.salida, QStringLiteral("1")) << e.errores.toStdString();
    }

    Corrida lanzar(const QStringList &args, Corte corte, const QString &cuenta = {}) {
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("CO_CRASH_AT"));
        env.remove(QStringLiteral("CO_CRASH_COUNT"));
        if (corte.punto > 0)
            env.insert(QStringLiteral("CO_CRASH_AT"), QString::number(corte.punto));
        if (!cuenta.isEmpty())
            env.insert(QStringLiteral("CO_CRASH_COUNT"), cuenta);
        p.setProcessEnvironment(env);
        QElapsedTimer reloj;
        reloj.start();
        p.start(QStringLiteral(CO_CLI_PATH), args);
        EXPECT_TRUE(p.waitForStarted(30000));
        p.closeWriteChannel();
        if (corte.retardoMs >= 0 && !p.waitForFinished(corte.retardoMs))
            p.kill();
        if (p.state() != QProcess::NotRunning) {
            EXPECT_TRUE(p.waitForFinished(120000));
        }
        Corrida r;
        r.ms = reloj.elapsed();
        r.muerta = p.exitStatus() == QProcess::CrashExit;
        r.codigo = r.muerta ? -1 : p.exitCode();
        r.salida = QString::fromUtf8(p.readAllStandardOutput());
        r.errores = QString::fromUtf8(p.readAllStandardError());
        // A sanitizer report is a fault whatever else happened.
        EXPECT_FALSE(r.errores.contains(QStringLiteral("Sanitizer")) ||
                     r.errores.contains(QStringLiteral("runtime error:")))
            << r.errores.toStdString();
        return r;
    }

    // The first, undisturbed trial of a kind: its points and time bound the cuts.
    Corrida medir(const QStringList &args, Cifras &cifras) {
        const QString archivo = cuentas_.filePath(QStringLiteral("cuenta"));
        QFile::remove(archivo);
        const Corrida r = lanzar(args, {}, archivo);
        QFile f(archivo);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << "no count of crash points";
        cifras.puntosCorrida = f.readAll().trimmed().toLongLong();
        cifras.msCorrida = r.ms;
        EXPECT_GT(cifras.puntosCorrida, 0);
        ++cifras.enteras;
        return r;
    }

    // Trial `n` (from 1): odd ones at a crash point, in the last `cola` points of
    // the run for every other one (or for all with `soloCola`); even ones after
    // a delay.
    Corte elegir(int n, const Cifras &cifras, qint64 cola, bool soloCola = false) {
        Corte c;
        if (n % 2 == 1) {
            const qint64 total = std::max<qint64>(1, cifras.puntosCorrida);
            const qint64 desde = soloCola || n % 4 == 1 ? std::max<qint64>(1, total - cola + 1) : 1;
            c.punto = std::uniform_int_distribution<qint64>(desde, total)(rng_);
        } else {
            c.retardoMs = std::uniform_int_distribution<int>(
                0, static_cast<int>(std::max<qint64>(1, cifras.msCorrida)))(rng_);
        }
        return c;
    }

    void anotar(Cifras &cifras, const Corte &corte, const Corrida &r) {
        if (r.muerta) {
            ++cifras.muertas;
            if (corte.punto > 0)
                ++cifras.puntos[corte.punto];
            else
                cifras.retardos << corte.retardoMs;
        } else {
            ++cifras.enteras;
        }
    }

    void informar(const char *clase, const Cifras &cifras) {
        const QString linea = QStringLiteral("%1 (%2): %3")
                                  .arg(QLatin1String(clase),
                                       QString::fromStdString(test::backendName({GetParam(), 0})))
                                  .arg(cifras.texto());
        std::cout << linea.toStdString() << std::endl;
        RecordProperty(clase, linea.toStdString());
    }

    // The installation as the next run finds it, opened without making or
    // repairing anything.
    struct Vista {
        InstallationSettings settings;
        ScriptedMessages mensajes;
        std::unique_ptr<TfGENEINIC> sesion;
        std::unique_ptr<TModuloDatos> datos;
        bool empresa1 = false;

        QString sql(const QString &sentencia, const QString &conexion = {}) {
            return datos->EjecutarSQL(sentencia, conexion,
                                      QStringLiteral("Silenciosa,No Crear Tabla"));
        }
        bool hay(const QString &tabla, const QString &conexion = {}) {
            return test::TablasEnBase(*datos,
                                      conexion.isEmpty() ? QStringLiteral("Database") : conexion)
                .contains(tabla);
        }
    };

    // Trial `n` of `orden`: the first runs whole and counts its crash points,
    // the others are cut at a point or after a delay. `cuando` tells which.
    Corrida probar(int n, const QStringList &orden, Cifras &cifras, qint64 cola, bool soloCola,
                   QString *cuando) {
        Corte corte;
        Corrida r;
        if (n == 0) {
            r = medir(orden, cifras);
        } else {
            corte = elegir(n, cifras, cola, soloCola);
            r = lanzar(orden, corte);
            anotar(cifras, corte, r);
        }
        *cuando = QStringLiteral("prueba %1, punto %2, retardo %3 ms")
                      .arg(n)
                      .arg(corte.punto)
                      .arg(corte.retardoMs);
        return r;
    }

    std::unique_ptr<Vista> abrir(const QString &dir) {
        auto v = std::make_unique<Vista>();
        EXPECT_TRUE(LeerInstalacion(dir, &v->settings));
        v->sesion = std::make_unique<TfGENEINIC>(v->settings, &v->mensajes);
        QString motivo;
        EXPECT_TRUE(v->sesion->Conectar(&motivo)) << motivo.toStdString();
        v->datos = std::make_unique<TModuloDatos>(*v->sesion);
        const QString alias = v->sesion->NombreAliasEmpresa(1);
        v->empresa1 =
            GetParam() == Backend::SQLite
                ? QFileInfo::exists(companyFile(alias))
                : v->sql(QStringLiteral("SELECT COUNT(*) FROM pg_namespace WHERE nspname = "
                                        "lower(%1)")
                             .arg(Entrecomillar(alias)),
                         QStringLiteral("DatabaseGeneral")) == u"1";
        if (v->empresa1) {
            EXPECT_TRUE(v->sesion->ConectarEmpresa(1, &motivo)) << motivo.toStdString();
        }
        return v;
    }

    // Every table either absent or whole, on the general data and on company 1.
    void completas(Vista &v, const QString &cuando) {
        EXPECT_EQ(test::DefectosEsquema(*v.datos, QStringLiteral("DatabaseGeneral"), estructuras_),
                  QStringList())
            << cuando.toStdString();
        if (v.empresa1) {
            EXPECT_EQ(test::DefectosEsquema(*v.datos, QStringLiteral("Database"), estructuras_),
                      QStringList())
                << cuando.toStdString();
        }
    }

    QString estructuras_;
    QTemporaryDir cuentas_;
    std::mt19937_64 rng_;
    QList<InstallationSettings> hechas_;
};

TEST_P(CaidasPrograma, InitKilledAnywhereLeavesWholeTablesAndTheNextRunGoesOn) {
    Cifras cifras;
    for (int n = 0; n < kPruebas; ++n) {
        QTemporaryDir dir;
        ASSERT_TRUE(dir.isValid());
        nueva(dir);
        const QStringList init = {QStringLiteral("init"), QStringLiteral("--dir"), dir.path()};
        QString cuando;
        const Corrida r = probar(n, init, cifras, 12, false, &cuando);
        if (n == 0) {
            ASSERT_EQ(r.codigo, 0) << r.errores.toStdString();
        }
        {
            std::unique_ptr<Vista> v = abrir(dir.path());
            completas(*v, cuando);
            const bool empresa =
                v->hay(QStringLiteral("EMPRESA"), QStringLiteral("DatabaseGeneral"));
            const bool usuario =
                v->hay(QStringLiteral("USUARIO"), QStringLiteral("DatabaseGeneral"));
            // EMPRESA never stands without company 1 and its data.
            if (empresa) {
                EXPECT_EQ(v->sql(QStringLiteral("SELECT Codigo FROM EMPRESA"),
                                 QStringLiteral("DatabaseGeneral")),
                          QStringLiteral("1"))
                    << cuando.toStdString();
                EXPECT_TRUE(v->empresa1) << cuando.toStdString();
            }
            // A user is never there without the companies it may enter.
            const QString usuarios = usuario
                                         ? v->sql(QStringLiteral("SELECT COUNT(*) FROM USUARIO"),
                                                  QStringLiteral("DatabaseGeneral"))
                                         : QStringLiteral("0");
            if (usuarios != u"0") {
                QString empresas;
                EXPECT_TRUE(ValorUsuario(*v->datos, v->settings.CodigoPrimerUsuario,
                                         QStringLiteral("Empresas"), empresas, QString()));
                EXPECT_EQ(empresas.trimmed(), QStringLiteral("1")) << cuando.toStdString();
            }
            cifras.estados[QStringLiteral("EMPRESA %1, USUARIO %2")
                               .arg(empresa ? QStringLiteral("sí") : QStringLiteral("no"),
                                    usuarios == u"0" ? QStringLiteral("vacío")
                                                     : QStringLiteral("con usuario"))] += 1;
        }
        // The next run sets up what is missing, lets the first user in and
        // reaches company 1.
        const Corrida siguiente = lanzar({QStringLiteral("sql"), QStringLiteral("--dir"),
                                          dir.path(), QStringLiteral("SELECT Codigo FROM EMPRESA")},
                                         {});
        EXPECT_EQ(siguiente.codigo, 0) << cuando.toStdString() << siguiente.errores.toStdString();
        EXPECT_EQ(siguiente.salida, QStringLiteral("1")) << cuando.toStdString();
        std::unique_ptr<Vista> v = abrir(dir.path());
        completas(*v, cuando + QStringLiteral(", después"));
        for (const char *tabla : {"CAMPOUSR", "EMPRESA", "USUARIO"})
            EXPECT_TRUE(v->hay(QLatin1String(tabla), QStringLiteral("DatabaseGeneral")))
                << tabla << ' ' << cuando.toStdString();
        EXPECT_TRUE(v->empresa1);
        if (HasFailure())
            break;
    }
    EXPECT_GT(cifras.muertas, 0);
    informar("init", cifras);
}

TEST_P(CaidasPrograma, FirstCreationKilledAnywhereLeavesTheTableAbsentOrWhole) {
    QTemporaryDir dir;
    preparar(dir);
    if (HasFatalFailure())
        return;
    const QStringList consulta = {QStringLiteral("sql"), QStringLiteral("--dir"), dir.path(),
                                  QStringLiteral("SELECT COUNT(*) FROM PARMAQOB")};
    Cifras cifras;
    for (int n = 0; n < kPruebasCreacion; ++n) {
        QString cuando;
        const Corrida r = probar(n, consulta, cifras, 8, true, &cuando);
        if (n == 0) {
            ASSERT_EQ(r.salida, QStringLiteral("0")) << r.errores.toStdString();
        }
        std::unique_ptr<Vista> v = abrir(dir.path());
        completas(*v, cuando);
        const bool hecha = v->hay(QStringLiteral("PARMAQOB"));
        cifras.estados[hecha ? QStringLiteral("PARMAQOB entera")
                             : QStringLiteral("PARMAQOB ausente")] += 1;
        // Not made yet, for the next trial.
        if (hecha && n + 1 < kPruebasCreacion) {
            EXPECT_EQ(v->sql(QStringLiteral("DROP TABLE PARMAQOB")), QString());
        }
        if (HasFailure())
            return;
    }
    // The next run uses or makes the table, whatever the last cut left.
    const Corrida siguiente = lanzar(consulta, {});
    EXPECT_EQ(siguiente.salida, QStringLiteral("0")) << siguiente.errores.toStdString();
    std::unique_ptr<Vista> v = abrir(dir.path());
    EXPECT_TRUE(v->hay(QStringLiteral("PARMAQOB")));
    completas(*v, QStringLiteral("después"));
    EXPECT_GT(cifras.muertas, 0);
    informar("primera creación", cifras);
}

TEST_P(CaidasPrograma, BatchKilledAnywhereLeavesAPrefixOfItsStatements) {
    QTemporaryDir dir;
    preparar(dir);
    if (HasFatalFailure())
        return;
    constexpr int kSentencias = 60;
    const QString archivo = dir.filePath(QStringLiteral("lote.sql"));
    {
        QFile f(archivo);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        for (int i = 1; i <= kSentencias; ++i)
            f.write(QStringLiteral("INSERT INTO OBRA (Codigo, Descripcion) VALUES ('%1', 'Obra "
                                   "%1')\n")
                        .arg(i)
                        .toUtf8());
    }
    const QStringList lote = {QStringLiteral("sql"),
                              QStringLiteral("--dir"),
                              dir.path(),
                              QStringLiteral("--opciones"),
                              QStringLiteral("Silenciosa"),
                              QStringLiteral("--archivo"),
                              archivo};
    Cifras cifras;
    for (int n = 0; n < kPruebas; ++n) {
        QString cuando;
        const Corrida r = probar(n, lote, cifras, kSentencias + 8, false, &cuando);
        if (n == 0) {
            ASSERT_EQ(r.codigo, 0) << r.salida.toStdString() << r.errores.toStdString();
        }
        std::unique_ptr<Vista> v = abrir(dir.path());
        completas(*v, cuando);
        int hechas = 0;
        if (v->hay(QStringLiteral("OBRA"))) {
            const QStringList codigos =
                v->sql(QStringLiteral("SELECT Codigo FROM OBRA ORDER BY Codigo"))
                    .split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
            hechas = static_cast<int>(codigos.size());
            QStringList prefijo;
            for (int i = 1; i <= hechas; ++i)
                prefijo << QString::number(i);
            EXPECT_EQ(codigos, prefijo) << cuando.toStdString();
        }
        cifras.estados[hechas == 0             ? QStringLiteral("ninguna")
                       : hechas == kSentencias ? QStringLiteral("todas")
                                               : QStringLiteral("parte")] += 1;
        // Each trial makes OBRA on its first statement, but the last leaves
        // its work for the next run.
        if (n + 1 < kPruebas && v->hay(QStringLiteral("OBRA"))) {
            EXPECT_EQ(v->sql(QStringLiteral("DROP TABLE OBRA")), QString());
        }
        if (HasFailure())
            return;
    }
    // The batch again: what was done is refused as repeated, the rest lands.
    lanzar(lote, {});
    std::unique_ptr<Vista> v = abrir(dir.path());
    EXPECT_EQ(v->sql(QStringLiteral("SELECT COUNT(*) FROM OBRA")), QString::number(kSentencias));
    completas(*v, QStringLiteral("después"));
    EXPECT_GT(cifras.muertas, 0);
    informar("lote", cifras);
}

TEST_P(CaidasPrograma, BatchInOneTransactionKilledAnywhereIsAllThereOrNone) {
    QTemporaryDir dir;
    preparar(dir);
    if (HasFatalFailure())
        return;
    constexpr int kPares = 80;
    const QString archivo = dir.filePath(QStringLiteral("IDIOMA_Prueba.txt"));
    {
        QFile f(archivo);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        for (int i = 1; i <= kPares; ++i)
            f.write(QStringLiteral("Texto número %1\tText number %1\n").arg(i).toUtf8());
    }
    const QStringList carga = {QStringLiteral("diccionario"),
                               QStringLiteral("--dir"),
                               dir.path(),
                               QStringLiteral("--idioma"),
                               QStringLiteral("Prueba"),
                               QStringLiteral("--archivo"),
                               archivo};
    const QString general = QStringLiteral("DatabaseGeneral");
    Cifras cifras;
    auto cargados = [&](Vista &v) {
        return v.hay(QStringLiteral("TXIDIOMA"), general)
                   ? v.sql(QStringLiteral("SELECT COUNT(*) FROM TXIDIOMA WHERE Idioma = 'Prueba'"),
                           general)
                   : QStringLiteral("0");
    };
    for (int n = 0; n < kPruebas; ++n) {
        QString cuando;
        const Corrida r = probar(n, carga, cifras, 2 * kPares + 8, false, &cuando);
        if (n == 0) {
            ASSERT_EQ(r.codigo, 0) << r.errores.toStdString();
        }
        std::unique_ptr<Vista> v = abrir(dir.path());
        completas(*v, cuando);
        const QString textos = cargados(*v);
        EXPECT_TRUE(textos == u"0" || textos == QString::number(kPares))
            << textos.toStdString() << ' ' << cuando.toStdString();
        const QString idioma =
            v->hay(QStringLiteral("IDIOMA"), general)
                ? v->sql(QStringLiteral("SELECT COUNT(*) FROM IDIOMA WHERE Codigo = 'Prueba'"),
                         general)
                : QStringLiteral("0");
        EXPECT_EQ(idioma == u"1", textos != u"0") << cuando.toStdString();
        cifras.estados[textos == u"0" ? QStringLiteral("nada") : QStringLiteral("todo")] += 1;
        // Every other trial starts with the tables not made yet.
        if (n + 1 < kPruebas) {
            for (const char *tabla : {"TXIDIOMA", "IDIOMA"})
                if (v->hay(QLatin1String(tabla), general)) {
                    EXPECT_EQ(v->sql((n % 2 == 0 ? QStringLiteral("DROP TABLE ")
                                                 : QStringLiteral("DELETE FROM ")) +
                                         QLatin1String(tabla),
                                     general),
                              QString());
                }
        }
        if (HasFailure())
            return;
    }
    const Corrida siguiente = lanzar(carga, {});
    EXPECT_EQ(siguiente.codigo, 0) << siguiente.errores.toStdString();
    std::unique_ptr<Vista> v = abrir(dir.path());
    EXPECT_EQ(cargados(*v), QString::number(kPares));
    completas(*v, QStringLiteral("después"));
    EXPECT_GT(cifras.muertas, 0);
    informar("lote en una transacción", cifras);
}

CO_ON_BOTH_BACKENDS(CaidasPrograma);

// The seam itself: the chosen point kills, no other does, and the count is kept.
TEST(PuntosDeCaida, TheChosenPointKillsTheProcessAndNoOther) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    CrashPoints nunca(0);
    for (int i = 0; i < 1000; ++i)
        nunca.pass();
    EXPECT_EQ(nunca.passed(), 1000);
    EXPECT_EXIT(
        {
            CrashPoints p(3);
            p.pass();
            p.pass();
            std::fputs("dos pasados", stderr);
            p.pass();
            std::fputs("tercero pasado", stderr);
            std::exit(0);
        },
        ::testing::KilledBySignal(SIGKILL), "^dos pasados$");
    EXPECT_EXIT(
        {
            qputenv("CO_CRASH_AT", "2");
            CrashPoints p;
            p.pass();
            p.pass();
            std::exit(0);
        },
        ::testing::KilledBySignal(SIGKILL), "");
    for (const char *valor : {"0", "-4", "x", " "}) {
        EXPECT_EXIT(
            {
                qputenv("CO_CRASH_AT", valor);
                CrashPoints p;
                for (int i = 0; i < 10; ++i)
                    p.pass();
                std::exit(p.passed() == 10 ? 0 : 1);
            },
            ::testing::ExitedWithCode(0), "")
            << valor;
    }
}

TEST(PuntosDeCaida, TheCountOfAnUndisturbedRunIsWrittenAtTheEnd) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString archivo = dir.filePath(QStringLiteral("cuenta"));
    qputenv("CO_CRASH_COUNT", archivo.toLocal8Bit());
    {
        CrashPoints p;
        for (int i = 0; i < 7; ++i)
            p.pass();
        EXPECT_FALSE(QFileInfo::exists(archivo));
    }
    qunsetenv("CO_CRASH_COUNT");
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("7"));
}

} // namespace
} // namespace co
