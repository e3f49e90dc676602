// Hidden controls and grid columns per user, the modes that switch them, and
// the collecting of control names with its closing dialogue.
#include "core/hidden_controls.h"
#include "core/users.h"

#include "user_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

using test::kAna;

const QString kVerLista = QStringLiteral("¿Desea ver la Lista de Controles No Visibles?");
const QString kPideUsuarios =
    QStringLiteral("Introduzca los Códigos de Usuario (separados por coma) a los que desea asignar "
                   "la lista de Controles No Visibles: ");

class HiddenControls : public test::UserTest {
protected:
    void SetUp() override {
        UserTest::SetUp();
        if (HasFatalFailure())
            return;
        addUser(kAna, QStringLiteral("Normal"), {},
                QStringLiteral("ControlesNoVisibles=TfOBRAOBRA.pbBorrar,TfOBRAOBRA.TabSheet2·"
                               "TfOBRAOBRA.DBGrid1.Table2.Importe"));
    }

    QStringList controls(const QString &usuario) {
        QString value;
        ValorUsuario(*datos_, usuario, QStringLiteral("ControlesNoVisibles"), value);
        return ListaValorUsuario(value);
    }
};

TEST_P(HiddenControls, ListedControlsAndColumnsAreHidden) {
    const ControlesNoVisibles c = ControlesNoVisibles::Leer(*datos_, kAna, false, true);
    EXPECT_TRUE(c.ControlOculto(QStringLiteral("TfOBRAOBRA"), QStringLiteral("pbBorrar")));
    EXPECT_TRUE(c.ControlOculto(QStringLiteral("TfOBRAOBRA"), QStringLiteral("TabSheet2")));
    EXPECT_FALSE(c.ControlOculto(QStringLiteral("TfOBRAOBRA"), QStringLiteral("pbConforme")));
    EXPECT_FALSE(c.ControlOculto(QStringLiteral("TfFACTCLIE"), QStringLiteral("pbBorrar")));
    EXPECT_FALSE(c.ControlOculto(QStringLiteral("tfobraobra"), QStringLiteral("pbborrar")));
    EXPECT_TRUE(c.ColumnaOculta(QStringLiteral("TfOBRAOBRA"), QStringLiteral("DBGrid1"),
                                QStringLiteral("Table2"), QStringLiteral("Importe")));
    EXPECT_FALSE(c.ColumnaOculta(QStringLiteral("TfOBRAOBRA"), QStringLiteral("DBGrid1"),
                                 QStringLiteral("Table1"), QStringLiteral("Importe")));
    // A column name is not a control name, nor the other way round.
    EXPECT_FALSE(c.ControlOculto(QStringLiteral("TfOBRAOBRA"), QStringLiteral("DBGrid1")));
}

TEST_P(HiddenControls, OnlyOutsideAdministratorModeAndWithTheModeOn) {
    EXPECT_TRUE(ControlesNoVisibles::Leer(*datos_, kAna, true, true).lista().isEmpty());
    EXPECT_TRUE(ControlesNoVisibles::Leer(*datos_, kAna, false, false).lista().isEmpty());
    EXPECT_TRUE(ControlesNoVisibles::Leer(*datos_, kAna, true, false).lista().isEmpty());
    EXPECT_EQ(ControlesNoVisibles::Leer(*datos_, kAna, false, true).lista().size(), 3);
    EXPECT_TRUE(
        ControlesNoVisibles::Leer(*datos_, QStringLiteral("nadie"), false, true).lista().isEmpty());
}

TEST_P(HiddenControls, ProfileListApplies) {
    addUser(QStringLiteral("bob"), kAna);
    const ControlesNoVisibles c =
        ControlesNoVisibles::Leer(*datos_, QStringLiteral("bob"), false, true);
    EXPECT_TRUE(c.ControlOculto(QStringLiteral("TfOBRAOBRA"), QStringLiteral("pbBorrar")));
}

TEST_P(HiddenControls, PickedNamesAreKeptOnceInOrder) {
    ListaControlesSesion lista;
    lista.Registrar(NombreControl(QStringLiteral("TfOBRAOBRA"), QStringLiteral("pbBorrar")));
    lista.Registrar(QStringLiteral("TfOBRAOBRA.EditNombre"));
    lista.Registrar(QStringLiteral("TfOBRAOBRA.pbBorrar"));
    lista.Registrar(QString());
    EXPECT_EQ(lista.lista(), QStringList({QStringLiteral("TfOBRAOBRA.pbBorrar"),
                                          QStringLiteral("TfOBRAOBRA.EditNombre")}));
    EXPECT_EQ(NombreColumna(QStringLiteral("F"), QStringLiteral("G"), QStringLiteral("T"),
                            QStringLiteral("C")),
              QStringLiteral("F.G.T.C"));
}

TEST_P(HiddenControls, EmptyPickedListAsksNothing) {
    ListaControlesSesion lista;
    EXPECT_EQ(lista.Finalizar(*datos_, {}), 0);
    EXPECT_TRUE(messages_.texts().isEmpty());
}

TEST_P(HiddenControls, ClosingDialogueShowsTheListAndAppendsItToTheNamedUsers) {
    addUser(QStringLiteral("bob"));
    ListaControlesSesion lista;
    lista.Registrar(QStringLiteral("TfOBRAOBRA.pbBorrar"));
    lista.Registrar(QStringLiteral("TfFACTCLIE.EditRiesgo"));
    QString title, shown;
    messages_.answer(QStringLiteral("SI"));
    messages_.answer(QStringLiteral(" ANA , bob,,nadie"));
    const int saved = lista.Finalizar(*datos_, [&](const QString &t, const QString &text) {
        title = t;
        shown = text;
    });
    EXPECT_EQ(saved, 2);
    EXPECT_EQ(title, QStringLiteral("Controles No Visibles"));
    EXPECT_EQ(shown, QStringLiteral("TfOBRAOBRA.pbBorrar\r\nTfFACTCLIE.EditRiesgo"));
    ASSERT_EQ(messages_.texts().size(), 3);
    EXPECT_EQ(messages_.texts().at(0), kVerLista);
    EXPECT_EQ(messages_.shown().at(0).kind, u'C');
    EXPECT_EQ(messages_.texts().at(1), kPideUsuarios);
    EXPECT_EQ(messages_.shown().at(1).kind, u'P');
    EXPECT_EQ(messages_.texts().at(2),
              QStringLiteral("¡Imposible grabar la configuración del usuario!. Motivo: ¡El usuario "
                             "no está definido!"));
    EXPECT_EQ(controls(kAna), QStringList({QStringLiteral("TfOBRAOBRA.pbBorrar"),
                                           QStringLiteral("TfOBRAOBRA.TabSheet2"),
                                           QStringLiteral("TfOBRAOBRA.DBGrid1.Table2.Importe"),
                                           QStringLiteral("TfFACTCLIE.EditRiesgo")}));
    EXPECT_EQ(controls(QStringLiteral("bob")), lista.lista());
    // The list is kept in the block with "·" between names.
    EXPECT_EQ(user(QStringLiteral("bob")).Configuracion,
              QStringLiteral("ControlesNoVisibles=TfOBRAOBRA.pbBorrar·TfFACTCLIE.EditRiesgo"));
}

TEST_P(HiddenControls, AnswerNoShowsNothingAndNoCodesSaveNothing) {
    ListaControlesSesion lista;
    lista.Registrar(QStringLiteral("TfOBRAOBRA.pbNuevo"));
    bool viewed = false;
    messages_.answer(QStringLiteral("NO"));
    messages_.answer(QString());
    EXPECT_EQ(lista.Finalizar(*datos_, [&](const QString &, const QString &) { viewed = true; }),
              0);
    EXPECT_FALSE(viewed);
    EXPECT_EQ(messages_.texts(), QStringList({kVerLista, kPideUsuarios}));
    EXPECT_EQ(controls(kAna).size(), 3);
}

CO_ON_BOTH_BACKENDS(HiddenControls);

} // namespace
} // namespace co
