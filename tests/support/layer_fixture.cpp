#include "support/layer_fixture.h"

#include "support/test_postgres.h"

#include "core/connection_factory.h"

#include <QSqlDatabase>
#include <QSqlQuery>

namespace co::test {

InstallationSettings freshInstallation(Backend backend, const QString &folder) {
    InstallationSettings s;
    s.PathBaseDatosGeneral = folder;
    if (backend == Backend::SQLite) {
        s.TipoBaseDatos = QStringLiteral("Paradox");
        s.AliasBaseDatosGeneral = QStringLiteral("general");
        s.AliasBaseDatos = QStringLiteral("empresa");
    } else {
        const QString prefix = uniqueName(QStringLiteral("t"));
        s.TipoBaseDatos = QStringLiteral("PostgreSQL");
        s.AliasBaseDatosGeneral = prefix + QStringLiteral("_general");
        s.AliasBaseDatos = prefix + QStringLiteral("_empresa");
        s.ServidorBaseDatos = postgresConnInfo();
    }
    QString motivo;
    EXPECT_TRUE(CrearInstalacion(s, &motivo)) << motivo.toStdString();
    return s;
}

void dropInstallation(const InstallationSettings &s) {
    if (s.TipoBaseDatos != u"PostgreSQL")
        return;
    const QString name = uniqueName(QStringLiteral("drop"));
    {
        QSqlDatabase db = serverConnection(name, s.ServidorBaseDatos);
        if (db.open()) {
            QSqlQuery q(db);
            q.exec(QStringLiteral("SELECT nspname FROM pg_namespace WHERE nspname LIKE '%1%%' OR "
                                  "nspname LIKE '%2%%'")
                       .arg(s.AliasBaseDatosGeneral.toLower(), s.AliasBaseDatos.toLower()));
            QStringList schemas;
            while (q.next())
                schemas << q.value(0).toString();
            for (const QString &schema : schemas)
                QSqlQuery(db).exec(QStringLiteral("DROP SCHEMA %1 CASCADE").arg(schema));
        }
    }
    QSqlDatabase::removeDatabase(name);
}

void LayerTest::SetUp() {
    ASSERT_TRUE(dir_.isValid());
    settings_ = freshInstallation(GetParam(), dir_.path());
    if (GetParam() == Backend::PostgreSQL) {
        ASSERT_FALSE(settings_.ServidorBaseDatos.isEmpty());
    }
    sesion_ = std::make_unique<TfGENEINIC>(settings_, &messages_);
    QString motivo;
    ASSERT_TRUE(sesion_->Conectar(&motivo)) << motivo.toStdString();
    datos_ = std::make_unique<TModuloDatos>(*sesion_);
}

void LayerTest::TearDown() {
    datos_.reset();
    sesion_.reset();
    dropInstallation(settings_);
}

QString LayerTest::ok(const QString &sql, const QString &conexion, const QString &opciones) {
    const QString result = datos_->EjecutarSQL(sql, conexion, opciones);
    EXPECT_FALSE(result.startsWith(QStringLiteral("Error.")))
        << sql.toStdString() << "\n -> " << result.toStdString();
    return result;
}

void TablesOnDemandTest::SetUp() {
    LayerTest::SetUp();
    if (HasFatalFailure())
        return;
    creador_ = std::make_unique<CreadorTablas>(*datos_, kCarpetaDatos);
    datos_->setTableCreator(creador_.get());
}

void TablesOnDemandTest::reconnect() {
    creador_.reset();
    datos_.reset();
    sesion_ = std::make_unique<TfGENEINIC>(settings_, &messages_);
    QString motivo;
    ASSERT_TRUE(sesion_->Conectar(&motivo)) << motivo.toStdString();
    datos_ = std::make_unique<TModuloDatos>(*sesion_);
    creador_ = std::make_unique<CreadorTablas>(*datos_, kCarpetaDatos);
    datos_->setTableCreator(creador_.get());
}

void TablesOnDemandTest::TearDown() {
    if (datos_)
        datos_->setTableCreator(nullptr);
    creador_.reset();
    LayerTest::TearDown();
}

SesionConTablas::SesionConTablas(const InstallationSettings &settings, QString *fallo) {
    sesion = std::make_unique<TfGENEINIC>(settings, &mensajes);
    if (!sesion->Conectar(fallo))
        return;
    datos = std::make_unique<TModuloDatos>(*sesion);
    creador = std::make_unique<CreadorTablas>(*datos, kCarpetaDatos);
    datos->setTableCreator(creador.get());
}

SesionConTablas::~SesionConTablas() {
    if (datos)
        datos->setTableCreator(nullptr);
    creador.reset();
    datos.reset();
    sesion.reset();
}

InstalacionConTablas::InstalacionConTablas(Backend backend) {
    settings = freshInstallation(backend, dir.path());
    QString motivo;
    abierta = std::make_unique<SesionConTablas>(settings, &motivo);
    EXPECT_TRUE(abierta->datos) << motivo.toStdString();
}

InstalacionConTablas::~InstalacionConTablas() {
    abierta.reset();
    dropInstallation(settings);
}

std::string backendName(const ::testing::TestParamInfo<Backend> &info) {
    return info.param == Backend::SQLite ? "SQLite" : "PostgreSQL";
}

} // namespace co::test
