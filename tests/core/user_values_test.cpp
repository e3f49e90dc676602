// Users' values on both back-ends: fields and the key=value block, defaults,
// profiles and the keys every user keeps, saves that fail, the first user.
#include "core/installation.h"
#include "core/users.h"

#include "user_fixture.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

using test::kAna;

const QString kNoGrabada =
    QStringLiteral("¡Imposible grabar la configuración del usuario!. Motivo: ");

class UserValues : public test::UserTest {
protected:
    QString value(const QString &usuario, const QString &clave, const QString &defecto = {}) {
        QString v = QStringLiteral("sin tocar");
        ValorUsuario(*datos_, usuario, clave, v, defecto);
        return v;
    }
};

TEST_P(UserValues, ProfileCodeFollowsTheCategory) {
    addUser(QStringLiteral("admin"), QStringLiteral("Administrador"));
    addUser(QStringLiteral("conf"), QStringLiteral("Configurador"));
    addUser(QStringLiteral("normal"), QStringLiteral("Normal"));
    addUser(QStringLiteral("vacio"), QString());
    addUser(kAna, QStringLiteral("admin"));
    // Category words are compared exactly: another case names a profile.
    addUser(QStringLiteral("raro"), QStringLiteral("normal"));
    for (const char *own : {"admin", "conf", "normal", "vacio"})
        EXPECT_EQ(CodigoPerfil(*datos_, QLatin1String(own)), QLatin1String(own)) << own;
    EXPECT_EQ(CodigoPerfil(*datos_, kAna), QStringLiteral("admin"));
    EXPECT_EQ(CodigoPerfil(*datos_, QStringLiteral("raro")), QStringLiteral("normal"));
    EXPECT_EQ(CodigoPerfil(*datos_, QStringLiteral("nadie")), QStringLiteral("nadie"));
    EXPECT_EQ(CategoriaUsuario(*datos_, kAna), QStringLiteral("Administrador"));
    EXPECT_EQ(CategoriaUsuario(*datos_, QStringLiteral("conf")), QStringLiteral("Configurador"));
    EXPECT_EQ(CategoriaUsuario(*datos_, QStringLiteral("nadie")), QString());
}

TEST_P(UserValues, FieldsAndBlockKeysAreReadFromTheirPlace) {
    addUser(kAna, QStringLiteral("Normal"), {},
            QStringLiteral("VisualizacionPrevia=NO\r\nEmpresas=99\r\nVacia="));
    setField(kAna, QStringLiteral("Empresas"), QStringLiteral("1\r\n2"));
    setField(kAna, QStringLiteral("ProgramasActivos"), QStringLiteral("Maestro de Obras"));
    EXPECT_EQ(value(kAna, QStringLiteral("Empresas")), QStringLiteral("1\r\n2"));
    EXPECT_EQ(value(kAna, QStringLiteral("empresas")), QStringLiteral("1\r\n2"));
    EXPECT_EQ(value(kAna, QStringLiteral("ProgramasActivos")), QStringLiteral("Maestro de Obras"));
    EXPECT_EQ(value(kAna, QStringLiteral("visualizacionprevia")), QStringLiteral("NO"));
    EXPECT_EQ(value(kAna, QStringLiteral("ProgramasNoAccesibles"), QStringLiteral("d")),
              QStringLiteral("d"));
    EXPECT_EQ(value(kAna, QStringLiteral("Vacia"), QStringLiteral("d")), QStringLiteral("d"));
    EXPECT_EQ(value(kAna, QStringLiteral("NoEsta"), QStringLiteral("d")), QStringLiteral("d"));
    EXPECT_EQ(value(QStringLiteral("nadie"), QStringLiteral("Empresas"), QStringLiteral("d")),
              QStringLiteral("d"));
    QString v;
    EXPECT_TRUE(ValorUsuario(*datos_, kAna, QStringLiteral("VisualizacionPrevia"), v));
    EXPECT_FALSE(ValorUsuario(*datos_, kAna, QStringLiteral("NoEsta"), v));
}

TEST_P(UserValues, SavedValuesComeBackWhateverTheyHold) {
    addUser(kAna);
    const QString awkward = QStringLiteral("O'Brien | a=b; DROP TABLE USUARIO; -- ñ·€");
    ASSERT_TRUE(GuardarValorUsuario(*datos_, kAna, QStringLiteral("Nota"), awkward));
    ASSERT_TRUE(GuardarValorUsuario(*datos_, kAna, QStringLiteral("Otra"), QStringLiteral("1")));
    ASSERT_TRUE(GuardarValorUsuario(*datos_, kAna, QStringLiteral("NOTA"), awkward + u'!'));
    EXPECT_EQ(value(kAna, QStringLiteral("Nota")), awkward + u'!');
    EXPECT_EQ(value(kAna, QStringLiteral("Otra")), QStringLiteral("1"));
    // A block value cannot hold a line break: it is kept as "·".
    ASSERT_TRUE(
        GuardarValorUsuario(*datos_, kAna, QStringLiteral("Lista"), QStringLiteral("a\r\nb")));
    EXPECT_EQ(value(kAna, QStringLiteral("Lista")), QStringLiteral("a·b"));
    // A field keeps its lines.
    const QString programs = QStringLiteral("Maestro de Obras\r\nO'Brien's \"Listado\"\r\n");
    ASSERT_TRUE(
        GuardarValorUsuario(*datos_, kAna, QStringLiteral("ProgramasSoloLectura"), programs));
    EXPECT_EQ(user(kAna).ProgramasSoloLectura, programs);
    EXPECT_TRUE(messages_.texts().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(UserValues, ProfileGivesTheValuesButNotTheOwnKeys) {
    addUser(QStringLiteral("PERFIL"), QStringLiteral("Normal"), {},
            QStringLiteral("VisualizacionPrevia=NO\r\nIndicesBusqueda=del perfil\r\n"
                           "DatosBusqueda=del perfil\r\nContadorAccesos=2"));
    setField(QStringLiteral("PERFIL"), QStringLiteral("Empresas"), QStringLiteral("7"));
    addUser(kAna, QStringLiteral("PERFIL"), {},
            QStringLiteral("VisualizacionPrevia=SI\r\nIndicesBusqueda=de ana"));
    setField(kAna, QStringLiteral("Empresas"), QStringLiteral("1"));
    EXPECT_EQ(value(kAna, QStringLiteral("VisualizacionPrevia")), QStringLiteral("NO"));
    EXPECT_EQ(value(kAna, QStringLiteral("Empresas")), QStringLiteral("7"));
    EXPECT_EQ(value(kAna, QStringLiteral("IndicesBusqueda")), QStringLiteral("de ana"));
    EXPECT_EQ(value(kAna, QStringLiteral("indicesbusqueda")), QStringLiteral("de ana"));
    EXPECT_EQ(value(kAna, QStringLiteral("DatosBusqueda"), QStringLiteral("d")),
              QStringLiteral("d"));
    EXPECT_EQ(value(kAna, QStringLiteral("ContadorAccesos"), QStringLiteral("0")),
              QStringLiteral("0"));

    // Saves go to the same places.
    ASSERT_TRUE(GuardarValorUsuario(*datos_, kAna, QStringLiteral("DatosBusqueda"),
                                    QStringLiteral("nuevo")));
    ASSERT_TRUE(
        GuardarValorUsuario(*datos_, kAna, QStringLiteral("Tema"), QStringLiteral("oscuro")));
    EXPECT_EQ(
        user(kAna).Configuracion,
        QStringLiteral("VisualizacionPrevia=SI\r\nIndicesBusqueda=de ana\r\nDatosBusqueda=nuevo"));
    EXPECT_TRUE(
        user(QStringLiteral("PERFIL")).Configuracion.endsWith(QStringLiteral("\r\nTema=oscuro")));
    EXPECT_EQ(value(QStringLiteral("PERFIL"), QStringLiteral("DatosBusqueda")),
              QStringLiteral("del perfil"));
}

TEST_P(UserValues, FailedSavesAreToldAndChangeNothing) {
    addUser(kAna, QStringLiteral("Normal"), {}, QStringLiteral("A=1"));
    EXPECT_FALSE(GuardarValorUsuario(*datos_, QStringLiteral("nadie"), QStringLiteral("A"),
                                     QStringLiteral("2")));
    EXPECT_EQ(messages_.texts(),
              QStringList({kNoGrabada + QStringLiteral("¡El usuario no está definido!")}));
    EXPECT_EQ(messages_.shown().value(0).kind, u'A');
    messages_.clear();
    EXPECT_FALSE(GuardarValorUsuario(*datos_, kAna, QStringLiteral("A=B"), QStringLiteral("2")));
    EXPECT_FALSE(GuardarValorUsuario(*datos_, kAna, QString(), QStringLiteral("2")));
    ASSERT_EQ(messages_.texts().size(), 2);
    EXPECT_TRUE(messages_.texts().at(0).startsWith(kNoGrabada));
    EXPECT_EQ(user(kAna).Configuracion, QStringLiteral("A=1"));
    // A user whose profile record is missing has nowhere to save shared keys.
    addUser(QStringLiteral("huerfano"), QStringLiteral("PERFIL-BORRADO"));
    messages_.clear();
    EXPECT_FALSE(GuardarValorUsuario(*datos_, QStringLiteral("huerfano"), QStringLiteral("A"),
                                     QStringLiteral("2")));
    EXPECT_EQ(messages_.texts().size(), 1);
    EXPECT_TRUE(GuardarValorUsuario(*datos_, QStringLiteral("huerfano"),
                                    QStringLiteral("ContadorAccesos"), QStringLiteral("1")));
}

TEST_P(UserValues, FirstUserIsAddedOnlyToAnEmptyTable) {
    ASSERT_TRUE(CrearPrimerUsuario(*datos_, QStringLiteral("jefe")));
    const UserRecord r = user(QStringLiteral("jefe"));
    EXPECT_EQ(r.Nombre, QStringLiteral("Administrador"));
    EXPECT_EQ(r.Categoria, QStringLiteral("Administrador"));
    EXPECT_TRUE(r.ClaveAcceso.isEmpty());
    EXPECT_TRUE(CrearPrimerUsuario(*datos_, QStringLiteral("otro")));
    EXPECT_EQ(general(QStringLiteral("SELECT Codigo FROM USUARIO")), QStringLiteral("jefe"));
    EXPECT_TRUE(messages_.texts().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(UserValues, FirstUserCodeIsAnInstallationParameter) {
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    InstallationSettings written = settings_;
    written.CodigoPrimerUsuario = QStringLiteral("Jefe de Obra");
    ASSERT_TRUE(EscribirInstalacion(folder.path(), written));
    InstallationSettings read;
    LeerInstalacion(folder.path(), &read);
    EXPECT_EQ(read.CodigoPrimerUsuario, QStringLiteral("Jefe de Obra"));
    ASSERT_TRUE(CrearPrimerUsuario(*datos_, read.CodigoPrimerUsuario));
    EXPECT_EQ(user(QStringLiteral("jefe de obra")).Codigo, QStringLiteral("Jefe de Obra"));
}

TEST(UserValueLists, ItemsSplitAtLineBreaksMiddleDotsAndCommas) {
    EXPECT_EQ(ListaValorUsuario(QStringLiteral("a, b·c\r\nd\ne\r,,  ")),
              QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                           QStringLiteral("d"), QStringLiteral("e")}));
    EXPECT_EQ(ListaValorUsuario(QStringLiteral("a\r\n(Memo)\r\nb")),
              QStringList({QStringLiteral("a")}));
    EXPECT_TRUE(ListaValorUsuario(QString()).isEmpty());
    EXPECT_TRUE(ListaValorUsuario(QStringLiteral(" , ·")).isEmpty());
}

CO_ON_BOTH_BACKENDS(UserValues);

} // namespace
} // namespace co
