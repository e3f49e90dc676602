// Values read at the start of a session: help contexts, version date, server version.
#include "core/session_values.h"

#include "support/layer_fixture.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

TEST(HelpMap, PairsFromTwoWordLines) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("NAROWIN.MAP"));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("Maestro_de_Obras   120\nIntroduccion_de_Facturas 340 bis\n\nsolo\n  Listado_de_Tarifas\t77  \n");
    f.close();
    const QHash<QString, QString> mapa = LeerMapaAyuda(path);
    EXPECT_EQ(mapa.value(QStringLiteral("Maestro_de_Obras")), QStringLiteral("120"));
    EXPECT_EQ(mapa.value(QStringLiteral("Introduccion_de_Facturas")), QStringLiteral("340_bis"));
    EXPECT_FALSE(mapa.contains(QStringLiteral("solo")));
    EXPECT_EQ(ContextoAyuda(mapa, QStringLiteral("Maestro de &Obras")), 120);
    EXPECT_EQ(ContextoAyuda(mapa, QStringLiteral("Listado de Tarifas")), 77);
    // A value that is not a number, or no entry, is context 0.
    EXPECT_EQ(ContextoAyuda(mapa, QStringLiteral("Introduccion de Facturas")), 0);
    EXPECT_EQ(ContextoAyuda(mapa, QStringLiteral("Otra")), 0);
    EXPECT_TRUE(LeerMapaAyuda(dir.filePath(QStringLiteral("no.map"))).isEmpty());
}

TEST(VersionDate, FileDatePlusOneDayOrToday) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("programa"));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    ASSERT_TRUE(f.setFileTime(QDateTime(QDate(2026, 2, 28), QTime(12, 0)), QFileDevice::FileModificationTime));
    f.close();
    EXPECT_EQ(CalcularFechaVersion(path), QStringLiteral("01/03/2026"));
    EXPECT_EQ(CalcularFechaVersion(dir.filePath(QStringLiteral("no")), QDate(2026, 11, 23)), QStringLiteral("23/11/2026"));
}

class ServerVersion : public test::LayerTest {};

TEST_P(ServerVersion, NamesTheEngine) {
    const QString v = ok(SentenciaVersionServidor(backend()), QStringLiteral("DatabaseGeneral"));
    EXPECT_TRUE(v.startsWith(backend() == Backend::SQLite ? QStringLiteral("SQLite 3.") : QStringLiteral("PostgreSQL ")))
        << v.toStdString();
}

CO_ON_BOTH_BACKENDS(ServerVersion);

} // namespace
} // namespace co
