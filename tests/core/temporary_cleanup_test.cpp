// Rubbish of earlier runs: work files cleared by pattern in their folders, the
// claim that tells whether another run of the same user and program is alive,
// and the leftover temporary tables dropped only then, on both back-ends.
#include "core/temporary_cleanup.h"
#include "temporary_tables_fixture.h"

#include <QFile>
#include <QProcess>
#include <QSet>
#include <QSysInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

void tocar(const QString &carpeta, const QString &nombre) {
    QFile f(QDir(carpeta).filePath(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("x");
}

QSet<QString> archivos(const QString &carpeta) {
    const QStringList l = QDir(carpeta).entryList(QDir::Files | QDir::Hidden);
    return QSet<QString>(l.begin(), l.end());
}

TEST(ArchivosTemporales, EachPatternIsClearedInItsOwnFolderOnly) {
    QTemporaryDir aplicacion, sistema, privada;
    for (const QString &n :
         {QStringLiteral("_QSA1.DB"), QStringLiteral("_qsb.tmp"), QStringLiteral("QRP1.TMP"),
          QStringLiteral("TEMP1.DB"), QStringLiteral("control-obras"), QStringLiteral("_QS")})
        tocar(aplicacion.path(), n);
    for (const QString &n :
         {QStringLiteral("QRP1.TMP"), QStringLiteral("qrp22.tmp"), QStringLiteral("QRP3.DAT"),
          QStringLiteral("_QS1.DB"), QStringLiteral("TEMP_0A1B_1.bmp")})
        tocar(sistema.path(), n);
    for (const QString &n :
         {QStringLiteral("TEMP000001_fOBRALIS.DB"), QStringLiteral("temp000002_x.px"),
          QStringLiteral("MITEMP.DB"), QStringLiteral("QRP1.TMP")})
        tocar(privada.path(), n);
    EXPECT_EQ(LimpiarArchivosTemporales(aplicacion.path(), sistema.path(), privada.path()), 6);
    EXPECT_EQ(archivos(aplicacion.path()),
              QSet<QString>({QStringLiteral("QRP1.TMP"), QStringLiteral("TEMP1.DB"),
                             QStringLiteral("control-obras"), QStringLiteral("_QS")}));
    // Report bitmaps of PDF output are not work files of a run.
    EXPECT_EQ(archivos(sistema.path()),
              QSet<QString>({QStringLiteral("QRP3.DAT"), QStringLiteral("_QS1.DB"),
                             QStringLiteral("TEMP_0A1B_1.bmp")}));
    EXPECT_EQ(archivos(privada.path()),
              QSet<QString>({QStringLiteral("MITEMP.DB"), QStringLiteral("QRP1.TMP")}));
}

TEST(ArchivosTemporales, FilesThatCannotGoAndMissingFoldersAreSkipped) {
    QTemporaryDir privada;
    const QString cerrada = QDir(privada.path()).filePath(QStringLiteral("cerrada"));
    ASSERT_TRUE(QDir().mkpath(cerrada));
    tocar(cerrada, QStringLiteral("TEMP1.DB"));
    tocar(cerrada, QStringLiteral("TEMP2.DB"));
    ASSERT_TRUE(QFile::setPermissions(cerrada, QFile::ReadOwner | QFile::ExeOwner));
    const bool root = QFile::remove(QDir(cerrada).filePath(QStringLiteral("TEMP2.DB")));
    EXPECT_EQ(LimpiarArchivosTemporales(QString(), privada.filePath(QStringLiteral("no-existe")),
                                        cerrada),
              root ? 1 : 0);
    EXPECT_EQ(QFile::exists(QDir(cerrada).filePath(QStringLiteral("TEMP1.DB"))), !root);
    QFile::setPermissions(cerrada, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// ---- the claim of a run --------------------------------------------------------

class ReclamoTablas : public test::TemporaryTablesTest {
protected:
    std::unique_ptr<TemporaryTablesClaim> reclamar() {
        return std::make_unique<TemporaryTablesClaim>(*sesion_, bloqueos_.path());
    }

    // A table of the session's current user and program, with one row.
    QString tablaCon(const QString &propietario, int numero = 0) {
        QString tabla, motivo;
        EXPECT_TRUE(CrearTablaTemporal(
            *datos_, *creador_, propietario,
            QStringLiteral("Tabla Temporal %1\r\n/C/1/Clave/ftInteger/0/*").arg(numero), &tabla,
            &motivo))
            << motivo.toStdString();
        general(QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (Clave) VALUES ('1')"));
        return tabla;
    }

    QTemporaryDir bloqueos_;
};

TEST_P(ReclamoTablas, AClaimIsAloneOnlyWithoutOtherLiveRuns) {
    auto primera = reclamar();
    EXPECT_TRUE(primera->held());
    EXPECT_TRUE(primera->alone());
    auto segunda = reclamar();
    EXPECT_TRUE(segunda->held());
    EXPECT_FALSE(segunda->alone());
    primera.reset();
    // The second run is still alive: a new one must not clear its tables.
    auto tercera = reclamar();
    EXPECT_FALSE(tercera->alone());
    segunda.reset();
    tercera.reset();
    EXPECT_TRUE(reclamar()->alone());
}

TEST_P(ReclamoTablas, OtherUsersAndProgramsDoNotCount) {
    auto mia = reclamar();
    sesion_->CodigoUsuario = QStringLiteral("MARIA");
    EXPECT_TRUE(reclamar()->alone());
    sesion_->CodigoUsuario = QStringLiteral("ADMIN");
    FijarNumeroPrograma(7);
    EXPECT_TRUE(reclamar()->alone());
}

TEST_P(ReclamoTablas, TheClaimOfADeadRunIsFreed) {
    auto viva = reclamar();
    // Make the slot file look like that of a run that crashed: a finished process.
    QProcess p;
    p.start(QStringLiteral("/bin/true"));
    ASSERT_TRUE(p.waitForFinished());
    const qint64 muerto = p.processId() > 0 ? p.processId() : 999999;
    const QStringList slots = QDir(bloqueos_.path()).entryList(QDir::Files);
    ASSERT_EQ(slots.size(), 1);
    viva.reset();
    QFile f(QDir(bloqueos_.path()).filePath(slots.first()));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(QByteArray::number(muerto) + "\ncore_tests\n" + QSysInfo::machineHostName().toUtf8() +
            "\n");
    f.close();
    EXPECT_TRUE(reclamar()->alone());
}

TEST_P(ReclamoTablas, LeftoverTablesOfThisRunAreDroppedAndTheirNamesKept) {
    const QString a = tablaCon(QStringLiteral("fOBRALIS"));
    const QString b = tablaCon(QStringLiteral("fOBRALIS"), 2);
    sesion_->CodigoUsuario = QStringLiteral("MARIA");
    const QString deMaria = tablaCon(QStringLiteral("fOBRALIS"));
    sesion_->CodigoUsuario = QStringLiteral("ADMIN");
    FijarNumeroPrograma(7);
    const QString deOtroPrograma = tablaCon(QStringLiteral("fOBRALIS"));
    FijarNumeroPrograma(kProgramaControlObras);
    nombre(QStringLiteral("fSINTABLA")); // a name whose table was never made
    general(QStringLiteral("CREATE TABLE TEMPAJENA (Clave INTEGER)"));

    auto reclamo = reclamar();
    ASSERT_TRUE(reclamo->alone());
    EXPECT_EQ(LimpiarTablasTemporales(*datos_, *reclamo), 2);
    EXPECT_FALSE(existe(a));
    EXPECT_FALSE(existe(b));
    EXPECT_TRUE(existe(deMaria));
    EXPECT_TRUE(existe(deOtroPrograma));
    EXPECT_TRUE(existe(QStringLiteral("TEMPAJENA")));
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM")), QStringLiteral("5"));
    // The next use finds the same name and makes the table again.
    EXPECT_EQ(tablaCon(QStringLiteral("fOBRALIS")), a);
    EXPECT_EQ(LimpiarTablasTemporales(*datos_, *reclamo), 1);
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(ReclamoTablas, NothingIsDroppedWhileAnotherRunIsAlive) {
    const QString a = tablaCon(QStringLiteral("fOBRALIS"));
    auto otra = reclamar();
    auto mia = reclamar();
    EXPECT_EQ(LimpiarTablasTemporales(*datos_, *mia), -1);
    EXPECT_EQ(general(QStringLiteral("SELECT Clave FROM ") + a), QStringLiteral("1"));
}

TEST_P(ReclamoTablas, WithoutNombttemThereIsNothingToDrop) {
    general(QStringLiteral("DROP TABLE NOMBTTEM"));
    auto reclamo = reclamar();
    EXPECT_EQ(LimpiarTablasTemporales(*datos_, *reclamo), 0);
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

CO_ON_BOTH_BACKENDS(ReclamoTablas);

} // namespace
} // namespace co
