// Rights on both back-ends: companies, access levels of programs, programs that
// open by themselves, the administrator test and forbidden processes, each read
// through the user's profile.
#include "core/rights.h"
#include "core/users.h"

#include "user_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

using test::kAna;

const QString kSoloAdministrador = QStringLiteral(
    "¡Es necesario ser un usuario con categoría de Administrador para realizar este proceso!");

class Rights : public test::UserTest {};

TEST_P(Rights, CompaniesAreWholeLinesOfTheList) {
    addUser(kAna);
    setField(kAna, QStringLiteral("Empresas"), QStringLiteral("1\r\n12\n3\r\n"));
    EXPECT_TRUE(UsuarioAccedeEmpresa(*datos_, kAna, 1));
    EXPECT_TRUE(UsuarioAccedeEmpresa(*datos_, kAna, 12));
    EXPECT_TRUE(UsuarioAccedeEmpresa(*datos_, kAna, 3));
    EXPECT_FALSE(UsuarioAccedeEmpresa(*datos_, kAna, 2));
    EXPECT_FALSE(UsuarioAccedeEmpresa(*datos_, kAna, 0));
    EXPECT_FALSE(UsuarioAccedeEmpresa(*datos_, kAna, -1));
    EXPECT_FALSE(UsuarioAccedeEmpresa(*datos_, QStringLiteral("nadie"), 1));
}

TEST_P(Rights, EmptyCompanyListAndMemoMarkersGiveNothing) {
    addUser(kAna);
    EXPECT_FALSE(UsuarioAccedeEmpresa(*datos_, kAna, 1));
    setField(kAna, QStringLiteral("Empresas"), QStringLiteral("2\r\n(Memo)\r\n1"));
    EXPECT_TRUE(UsuarioAccedeEmpresa(*datos_, kAna, 2));
    EXPECT_FALSE(UsuarioAccedeEmpresa(*datos_, kAna, 1));
    setField(kAna, QStringLiteral("Empresas"), QStringLiteral("finmemo\r\n1"));
    EXPECT_FALSE(UsuarioAccedeEmpresa(*datos_, kAna, 1));
}

TEST_P(Rights, CompaniesComeFromTheProfile) {
    addUser(QStringLiteral("PERFIL"));
    setField(QStringLiteral("PERFIL"), QStringLiteral("Empresas"), QStringLiteral("5"));
    addUser(kAna, QStringLiteral("PERFIL"));
    setField(kAna, QStringLiteral("Empresas"), QStringLiteral("1"));
    EXPECT_TRUE(UsuarioAccedeEmpresa(*datos_, kAna, 5));
    EXPECT_FALSE(UsuarioAccedeEmpresa(*datos_, kAna, 1));
}

TEST_P(Rights, AccessLevelsOfPrograms) {
    addUser(kAna);
    setField(kAna, QStringLiteral("ProgramasNoAccesibles"),
             QStringLiteral("Maestro de &Clientes\r\nHistorico de Facturas"));
    setField(kAna, QStringLiteral("ProgramasSoloLectura"),
             QStringLiteral("Maestro de Obras\r\nHistorico de Facturas"));
    EXPECT_EQ(NivelAccesoPrograma(*datos_, kAna, QStringLiteral("&Maestro de Obras")),
              QStringLiteral("Solo Lectura"));
    EXPECT_EQ(NivelAccesoPrograma(*datos_, kAna, QStringLiteral("Maestro de Tarifas")),
              QStringLiteral("Total"));
    EXPECT_TRUE(messages_.texts().isEmpty());
    // Forbidden wins over read-only; ampersands do not count on either side.
    EXPECT_EQ(NivelAccesoPrograma(*datos_, kAna, QStringLiteral("Historico de Facturas")),
              QStringLiteral("Ninguno"));
    EXPECT_EQ(NivelAccesoPrograma(*datos_, kAna, QStringLiteral("&Maestro de Clientes")),
              QStringLiteral("Ninguno"));
    EXPECT_EQ(messages_.texts(),
              QStringList({QStringLiteral("Vd. no tiene acceso al programa Historico de Facturas"),
                           QStringLiteral("Vd. no tiene acceso al programa Maestro de Clientes")}));
    EXPECT_EQ(messages_.shown().value(0).kind, u'I');
    // Names are compared whole and with their case.
    EXPECT_EQ(NivelAccesoPrograma(*datos_, kAna, QStringLiteral("maestro de obras")),
              QStringLiteral("Total"));
    EXPECT_EQ(NivelAccesoPrograma(*datos_, kAna, QStringLiteral("Maestro de")),
              QStringLiteral("Total"));
}

TEST_P(Rights, ProgramAccessFollowsTheLevel) {
    addUser(kAna);
    setField(kAna, QStringLiteral("ProgramasNoAccesibles"), QStringLiteral("Prohibido"));
    setField(kAna, QStringLiteral("ProgramasSoloLectura"), QStringLiteral("Lectura"));
    EXPECT_FALSE(UsuarioAccedePrograma(*datos_, kAna, QStringLiteral("Prohibido")));
    EXPECT_TRUE(UsuarioAccedePrograma(*datos_, kAna, QStringLiteral("Lectura")));
    EXPECT_TRUE(UsuarioAccedePrograma(*datos_, kAna, QStringLiteral("Otro")));
    EXPECT_EQ(messages_.texts().size(), 1);
}

TEST_P(Rights, ProgramRightsComeFromTheProfile) {
    addUser(QStringLiteral("PERFIL"));
    setField(QStringLiteral("PERFIL"), QStringLiteral("ProgramasNoAccesibles"),
             QStringLiteral("Maestro de Obras"));
    setField(QStringLiteral("PERFIL"), QStringLiteral("ProgramasActivos"),
             QStringLiteral("Listado de Tarifas"));
    addUser(kAna, QStringLiteral("PERFIL"));
    setField(kAna, QStringLiteral("ProgramasActivos"), QStringLiteral("Maestro de Clientes"));
    EXPECT_FALSE(UsuarioAccedePrograma(*datos_, kAna, QStringLiteral("Maestro de Obras")));
    EXPECT_TRUE(ProgramaActivo(*datos_, kAna, QStringLiteral("Listado de &Tarifas")));
    EXPECT_FALSE(ProgramaActivo(*datos_, kAna, QStringLiteral("Maestro de Clientes")));
}

TEST_P(Rights, ActiveProgramsAreListedOnesOnly) {
    addUser(kAna);
    EXPECT_FALSE(ProgramaActivo(*datos_, kAna, QStringLiteral("Maestro de Obras")));
    setField(kAna, QStringLiteral("ProgramasActivos"),
             QStringLiteral("Maestro de Obras\r\nIntroducción de Partes de Trabajo"));
    EXPECT_TRUE(ProgramaActivo(*datos_, kAna, QStringLiteral("Maestro de Obras")));
    EXPECT_TRUE(
        ProgramaActivo(*datos_, kAna, QStringLiteral("Introducción de Partes de &Trabajo")));
    EXPECT_FALSE(ProgramaActivo(*datos_, kAna, QStringLiteral("Maestro de Clientes")));
    EXPECT_FALSE(
        ProgramaActivo(*datos_, QStringLiteral("nadie"), QStringLiteral("Maestro de Obras")));
    EXPECT_TRUE(messages_.texts().isEmpty());
}

TEST_P(Rights, AdministratorByCategoryOrProfile) {
    addUser(QStringLiteral("admin"), QStringLiteral("Administrador"));
    addUser(kAna, QStringLiteral("admin"));
    addUser(QStringLiteral("conf"), QStringLiteral("Configurador"));
    EXPECT_TRUE(EsAdministrador(*datos_, QStringLiteral("admin")));
    EXPECT_TRUE(EsAdministrador(*datos_, kAna));
    EXPECT_TRUE(messages_.texts().isEmpty());
    EXPECT_FALSE(EsAdministrador(*datos_, QStringLiteral("conf")));
    EXPECT_FALSE(EsAdministrador(*datos_, QStringLiteral("nadie")));
    EXPECT_EQ(messages_.texts(), QStringList({kSoloAdministrador, kSoloAdministrador}));
    EXPECT_EQ(messages_.shown().value(0).kind, u'A');
    messages_.clear();
    EXPECT_FALSE(EsAdministrador(*datos_, QStringLiteral("conf"), QStringLiteral("Otra,Silencio")));
    EXPECT_TRUE(messages_.texts().isEmpty());
}

TEST_P(Rights, ForbiddenProcessesAreTheUserValue) {
    addUser(QStringLiteral("PERFIL"), QStringLiteral("Normal"), {},
            QStringLiteral("ProcesosNoAutorizados=Borrar Obras,Confirmar Facturas"));
    addUser(kAna, QStringLiteral("PERFIL"));
    addUser(QStringLiteral("bob"));
    EXPECT_EQ(ProcesosProhibidos(*datos_, kAna), QStringLiteral("Borrar Obras,Confirmar Facturas"));
    EXPECT_EQ(ProcesosProhibidos(*datos_, QStringLiteral("bob")), QString());
}

CO_ON_BOTH_BACKENDS(Rights);

} // namespace
} // namespace co
