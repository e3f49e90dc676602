// The pieces of the start of a session that need no window: the command line,
// the instance number among processes, and the main menu's opening logic.
#include "core/command_line.h"
#include "core/instance_number.h"
#include "core/main_menu.h"

#include "support/gtest_qt_printing.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

QStringList args(std::initializer_list<const char *> list) {
    QStringList out{QStringLiteral("control-obras")};
    for (const char *a : list)
        out << QString::fromUtf8(a);
    return out;
}

TEST(CommandLine, NamedArgumentsInAnyCaseAndOrder) {
    const LineaComandos l = LeerLineaComandos(args({"t=Ingles", "U=ANA", "i=otro.ini", "suelto"}));
    EXPECT_EQ(l.ParametroUsuario, QStringLiteral("ANA"));
    EXPECT_EQ(l.ParametroINI, QStringLiteral("otro.ini"));
    EXPECT_EQ(l.ParametroIdioma, QStringLiteral("Ingles"));
}

TEST(CommandLine, PositionalUserOnlyWithoutAnyNamedArgument) {
    EXPECT_EQ(LeerLineaComandos(args({"EMPRESA", "LUIS"})).ParametroUsuario, QStringLiteral("LUIS"));
    EXPECT_EQ(LeerLineaComandos(args({"LUIS"})).ParametroUsuario, QString());
    // One named argument anywhere makes the line a named one.
    EXPECT_EQ(LeerLineaComandos(args({"EMPRESA", "LUIS", "T=Ingles"})).ParametroUsuario, QString());
    EXPECT_EQ(LeerLineaComandos(args({})).ParametroUsuario, QString());
    // "x=" in the second place counts, whatever the letter.
    EXPECT_EQ(LeerLineaComandos(args({"A", "B", "Z=1"})).ParametroUsuario, QString());
}

TEST(InstanceNumber, LowestFreeNumberAmongLiveHolders) {
    QTemporaryDir dir;
    auto first = std::make_unique<NumeroInstancia>(dir.path());
    NumeroInstancia second(dir.path());
    EXPECT_EQ(first->numero(), 1);
    EXPECT_EQ(second.numero(), 2);
    first.reset();
    NumeroInstancia third(dir.path());
    EXPECT_EQ(third.numero(), 1);
    EXPECT_TRUE(third.carpetaPrivada().endsWith(QStringLiteral("PRIVDIR/1")));
}

TEST(InstanceNumber, UnwritableFolderGivesZero) {
    NumeroInstancia none(QStringLiteral("/proc/no-such-place"));
    EXPECT_EQ(none.numero(), 0);
    EXPECT_EQ(none.carpetaPrivada(), QString());
}

class FakeHost : public AnfitrionVentanas {
public:
    QList<Ventana> ventanas() const override { return open; }
    bool crear(const QString &formulario, const QString &nombre) override {
        if (!available.contains(formulario))
            return false;
        open.append({nombre, false});
        log << QStringLiteral("crear ") + nombre;
        return true;
    }
    bool cerrar(const QString &nombre) override {
        log << QStringLiteral("cerrar ") + nombre;
        if (refusing.contains(nombre))
            return false;
        for (int i = 0; i < open.size(); ++i)
            if (open[i].nombre == nombre) {
                open.removeAt(i);
                break;
            }
        return true;
    }
    void restaurar(const QString &nombre) override { log << QStringLiteral("restaurar ") + nombre; }
    void mostrar(const QString &nombre) override { log << QStringLiteral("mostrar ") + nombre; }
    QList<Ventana> open;
    QStringList refusing; // windows whose close query says no
    QStringList available = {QStringLiteral("fOBRAOBRA"), QStringLiteral("fOBRAUNID"), QStringLiteral("fGENEPARA")};
    QStringList log;
};

struct MenuFixture : ::testing::Test {
    FakeHost host;
    QStringList forbidden, warnings, activity;
    MenuPrincipal menu{host, [this](const QString &p) { return !forbidden.contains(p); },
                       [this](const QString &t) { warnings << t; },
                       [this](const QString &v, const QString &a) { activity << a + u' ' + v; }};
};

TEST_F(MenuFixture, EveryEntryHasCaptionFormAndGroup) {
    QStringList components;
    for (const EntradaMenu &e : EntradasMenuPrincipal()) {
        EXPECT_FALSE(e.caption.isEmpty());
        EXPECT_TRUE(e.formulario.startsWith(u'f')) << e.formulario.toStdString();
        EXPECT_TRUE(GruposMenuPrincipal().contains(e.grupo));
        EXPECT_FALSE(components.contains(e.componente));
        components << e.componente;
    }
    EXPECT_EQ(components.size(), 45);
}

TEST_F(MenuFixture, OpenShowRestoreAndCreate) {
    EXPECT_TRUE(menu.Ejecutar(QStringLiteral("MaestrodeObras1")));
    EXPECT_TRUE(menu.Ejecutar(QStringLiteral("MaestrodeObras1")));
    host.open[0].minimizada = true;
    EXPECT_TRUE(menu.Ejecutar(QStringLiteral("MaestrodeObras1")));
    EXPECT_TRUE(menu.AbrirFormulario(QStringLiteral("fOBRAOBRA"), QStringLiteral("Create"), QStringLiteral("fOBRAOBRA")));
    EXPECT_EQ(host.log, (QStringList{"crear fOBRAOBRA", "mostrar fOBRAOBRA", "restaurar fOBRAOBRA", "cerrar fOBRAOBRA",
                                     "crear fOBRAOBRA"}));
    EXPECT_EQ(activity, (QStringList{"Create fOBRAOBRA", "Show fOBRAOBRA", "Restore fOBRAOBRA", "Create fOBRAOBRA"}));
    // A window that refuses to close is kept, and no fresh one is made beside it.
    host.refusing << QStringLiteral("fOBRAOBRA");
    host.log.clear();
    EXPECT_FALSE(menu.AbrirFormulario(QStringLiteral("fOBRAOBRA"), QStringLiteral("Create"), QStringLiteral("fOBRAOBRA")));
    EXPECT_EQ(host.log, QStringList{"cerrar fOBRAOBRA"});
    EXPECT_EQ(host.open.size(), 1);
}

TEST_F(MenuFixture, SuffixedWindowsAreFoundByTheirForm) {
    host.open.append({QStringLiteral("fOBRAUNID_2"), false});
    EXPECT_TRUE(menu.AbrirFormulario(QStringLiteral("fOBRAUNID"), QString(), QStringLiteral("fOBRAUNID")));
    EXPECT_EQ(host.log, QStringList{"mostrar fOBRAUNID_2"});
}

TEST_F(MenuFixture, ForbiddenAndMissingPrograms) {
    forbidden << QStringLiteral("Maestro de Obras");
    EXPECT_FALSE(menu.Ejecutar(QStringLiteral("MaestrodeObras1")));
    EXPECT_TRUE(host.open.isEmpty());
    EXPECT_TRUE(warnings.isEmpty());
    EXPECT_FALSE(menu.Ejecutar(QStringLiteral("MaestrodeClientes1")));
    EXPECT_EQ(warnings, QStringList{MenuPrincipal::TextoNoDisponible(QStringLiteral("Maestro de Clientes"))});
    // The parameters entry opens without the test of its caption.
    forbidden << QStringLiteral("Globales");
    EXPECT_TRUE(menu.Ejecutar(QStringLiteral("Globales1")));
    EXPECT_FALSE(menu.Ejecutar(QStringLiteral("NoExiste1")));
}

TEST_F(MenuFixture, FirstActivationOpensTheUsersPrograms) {
    menu.PrimeraActivacion({QStringLiteral("Maestro de Unidades"), QStringLiteral("Maestro de Obras"), QStringLiteral("Otra")});
    // In menu order, not in list order.
    EXPECT_EQ(host.log, (QStringList{"crear fOBRAOBRA", "crear fOBRAUNID"}));
}

TEST(CompanyChange, WhichWindowsDie) {
    EXPECT_EQ(MenuPrincipal::VentanasQueCierraCambioEmpresa({QStringLiteral("fOBRAOBRA"), QStringLiteral("fGENEPARA"),
                                                            QStringLiteral("fGENEMTEX"), QStringLiteral("fGENEUSQL_2"),
                                                            QStringLiteral("fGENEGANA"), QStringLiteral("fFACTCLIE")}),
              (QStringList{"fOBRAOBRA", "fGENEMTEX", "fGENEUSQL_2", "fFACTCLIE"}));
}

} // namespace
} // namespace co
