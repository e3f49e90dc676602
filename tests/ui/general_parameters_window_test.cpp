// The "Globales" window of a real desktop session, through its widgets: opened
// by `--abrir` as the menu opens it, its pages switched with the mouse and the
// keyboard, values typed into an edit and a memo, saved with the "Grabar"
// button and read back from the database; a refused save keeps the window and
// what was typed, and a saved currency reaches the session at once.
#include "core/currency.h"
#include "core/general_parameters_table.h"
#include "desktop_fixture.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

class GeneralParametersWindow : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (HasFatalFailure())
            return;
        OpcionesArranque o = opciones(QStringLiteral("ADMIN"));
        session_ = std::make_unique<DesktopSession>(o, &port_);
        session_->AbrirAlArrancar(QStringLiteral("Globales"));
        ASSERT_TRUE(session_->Arrancar()) << port_.texts().join(u'\n').toStdString();
        session_->ventana()->show();
        session_->ventana()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(session_->ventana()));
        QMdiSubWindow *w = session_->ventana()->mdi()->activeSubWindow();
        ASSERT_NE(w, nullptr) << port_.texts().join(u'\n').toStdString();
        view_ = dynamic_cast<FormView *>(w->widget());
        ASSERT_NE(view_, nullptr);
        tabs_ = view_->findChild<QTabWidget *>();
        ASSERT_NE(tabs_, nullptr);
        port_.clear(); // the login's prompt
    }
    QString sql(const QString &sentencia) {
        return session_->aplicacion().datos().EjecutarSQL(sentencia);
    }
    QString parametro(const QString &campo) {
        return sql(QStringLiteral("SELECT %1 FROM PARAGENE WHERE IdRegistro = 1").arg(campo));
    }
    // Clicks the tab captioned `titulo` with the mouse.
    void pagina(const QString &titulo) {
        QTabBar *barra = tabs_->tabBar();
        for (int i = 0; i < barra->count(); ++i)
            if (barra->tabText(i) == titulo) {
                QTest::mouseClick(barra, Qt::LeftButton, {}, barra->tabRect(i).center());
                return;
            }
        FAIL() << "no page " << titulo.toStdString();
    }
    QLineEdit *edit(const QString &nombre) {
        return qobject_cast<QLineEdit *>(view_->widgetFor(nombre));
    }
    // Clicks into an edit, clears it and types `texto` with the keyboard.
    void teclear(const QString &nombre, const QString &texto) {
        QLineEdit *e = edit(nombre);
        ASSERT_NE(e, nullptr) << nombre.toStdString();
        ASSERT_TRUE(e->isVisible()) << nombre.toStdString() << " is on another page";
        QTest::mouseClick(e, Qt::LeftButton);
        ASSERT_TRUE(e->hasFocus()) << port_.texts().join(u'\n').toStdString();
        QTest::keyClick(e, Qt::Key_End);
        for (qsizetype n = e->text().size(); n > 0; --n)
            QTest::keyClick(e, Qt::Key_Backspace);
        QTest::keyClicks(e, texto);
    }
    void grabar() {
        auto *b = qobject_cast<QPushButton *>(view_->widgetFor(QStringLiteral("pbGrabar")));
        ASSERT_NE(b, nullptr);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    bool cerrada() {
        return QTest::qWaitFor(
            [&] { return session_->ventana()->mdi()->subWindowList().isEmpty(); });
    }

    FormView *view_ = nullptr;
    QTabWidget *tabs_ = nullptr;
};

TEST_P(GeneralParametersWindow, PagesAreSwitchedValuesTypedAndSavedWithGrabar) {
    EXPECT_EQ(view_->windowTitle(), QStringLiteral("Parámetros Generales"));
    EXPECT_TRUE(session_->ventana()->accion(QStringLiteral("Globales1"))->isEnabled());
    ASSERT_EQ(tabs_->count(), 12);
    EXPECT_EQ(tabs_->tabText(0), QStringLiteral("General"));
    EXPECT_EQ(tabs_->currentIndex(), 0);
    // The defaults of the new record are on show.
    auto *caracter = edit(QStringLiteral("EditCaracterSeparadorASCII"));
    ASSERT_NE(caracter, nullptr);
    EXPECT_EQ(caracter->text(), QStringLiteral("@"));
    EXPECT_TRUE(caracter->isVisible());
    EXPECT_FALSE(edit(QStringLiteral("EditRazonSocial"))->isVisible()) << "on the second page";

    pagina(QStringLiteral("Empresa"));
    EXPECT_EQ(tabs_->currentIndex(), 1);
    ASSERT_NO_FATAL_FAILURE(
        teclear(QStringLiteral("EditRazonSocial"), QStringLiteral("Obras Perez SL")));
    EXPECT_EQ(view_->statusText(), QStringLiteral("Modificando registro 1"));

    // The keyboard goes to the next page too: the arrow on the tabs.
    QTest::keyClick(tabs_->tabBar(), Qt::Key_Right);
    EXPECT_EQ(tabs_->currentIndex(), 2);
    ASSERT_NO_FATAL_FAILURE(teclear(QStringLiteral("EditIva1"), QStringLiteral("21")));
    EXPECT_EQ(edit(QStringLiteral("EditIva1"))->alignment() & Qt::AlignHorizontal_Mask,
              Qt::AlignRight)
        << "numbers align right";

    // A memo takes lines; Enter does not leave it.
    pagina(QStringLiteral("Plantillas"));
    auto *memo = qobject_cast<QPlainTextEdit *>(
        view_->widgetFor(QStringLiteral("MemoPlantillaNumericaExt")));
    ASSERT_NE(memo, nullptr);
    ASSERT_TRUE(memo->isVisible());
    QTest::mouseClick(memo->viewport(), Qt::LeftButton);
    ASSERT_TRUE(memo->hasFocus());
    QTest::keyClicks(memo, QStringLiteral("PlantillaNumerica1=0.0 Cuota"));
    QTest::keyClick(memo, Qt::Key_Return);
    QTest::keyClicks(memo, QStringLiteral("PlantillasExt=SI"));
    EXPECT_TRUE(memo->hasFocus());
    EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();

    grabar();
    EXPECT_TRUE(cerrada()) << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(parametro(QStringLiteral("RazonSocial")), QStringLiteral("Obras Perez SL"));
    EXPECT_EQ(parametro(QStringLiteral("Iva1")), QStringLiteral("21"));
    const auto registro = LeerParametrosGenerales(session_->aplicacion().datos());
    ASSERT_TRUE(registro.has_value());
    EXPECT_EQ(registro->value(QStringLiteral("PlantillaNumericaExt")).toString(),
              QStringLiteral("PlantillaNumerica1=0.0 Cuota\r\nPlantillasExt=SI"));
    EXPECT_EQ(parametro(QStringLiteral("CaracterSeparadorASCII")), QStringLiteral("@"));
}

TEST_P(GeneralParametersWindow, ARefusedSaveKeepsTheWindowAndWhatWasTyped) {
    sql(QStringLiteral("INSERT INTO MONEDA (Codigo, Descripcion, Abreviatura, Cambio, Decimales) "
                       "VALUES ('1', 'Pesetas', 'Pts', '1', '0')"));
    sql(QStringLiteral("INSERT INTO MONEDA (Codigo, Descripcion, Abreviatura, Cambio, Decimales) "
                       "VALUES ('2', 'Euros', 'EUR', '166.386', '2')"));
    pagina(QStringLiteral("Internacional"));
    ASSERT_NO_FATAL_FAILURE(teclear(QStringLiteral("EditCodigoMonedaBase"), QStringLiteral("2")));
    ASSERT_NO_FATAL_FAILURE(teclear(QStringLiteral("EditCodigoMonedaEuro"), QStringLiteral("2")));
    ASSERT_NO_FATAL_FAILURE(
        teclear(QStringLiteral("EditCodigoMonedaNacional"), QStringLiteral("2")));
    grabar();
    EXPECT_EQ(port_.texts(), QStringList{QStringLiteral(
                                 "¡La Moneda Nacional y la Moneda Euro no pueden ser la misma!")});
    EXPECT_EQ(session_->ventana()->mdi()->subWindowList().size(), 1);
    EXPECT_EQ(edit(QStringLiteral("EditCodigoMonedaNacional"))->text(), QStringLiteral("2"));
    EXPECT_EQ(edit(QStringLiteral("EditCodigoMonedaBase"))->text(), QStringLiteral("2"));
    EXPECT_NE(parametro(QStringLiteral("CodigoMonedaBase")), QStringLiteral("2"));
    EXPECT_FALSE(session_->aplicacion().monedas().MonedaBaseEsEuro);

    port_.clear();
    ASSERT_NO_FATAL_FAILURE(
        teclear(QStringLiteral("EditCodigoMonedaNacional"), QStringLiteral("1")));
    grabar();
    EXPECT_TRUE(cerrada()) << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(parametro(QStringLiteral("CodigoMonedaNacional")), QStringLiteral("1"));
    // The session took the currency at once.
    EXPECT_TRUE(session_->aplicacion().monedas().MonedaBaseEsEuro);
    EXPECT_EQ(session_->aplicacion().monedas().DecimalesMoneda, 2);
    // And so does the main window's currency entry, at its next click.
    TfOBRAMENU &ventana = *session_->ventana();
    ventana.accion(QStringLiteral("VerDatosenMonedaNacionalOEuro"))->trigger();
    EXPECT_EQ(ventana.PanelMoneda(), SimboloMonedaMostrada(ventana.VerOtraMoneda(), true));
    EXPECT_NE(ventana.PanelMoneda(), SimboloMonedaMostrada(ventana.VerOtraMoneda(), false));
}

CO_ON_BOTH_BACKENDS(GeneralParametersWindow);

// A session in English shows the lists of the window translated and keeps
// their values as stored.
using TranslatedLists = test::DesktopTest;

TEST_P(TranslatedLists, ACombinationPickedInEnglishIsStoredInSpanish) {
    ASSERT_EQ(cli(QStringLiteral("diccionario")).status, 0);
    {
        DesktopSession previa(opciones(QStringLiteral("ADMIN")), &port_);
        ASSERT_TRUE(previa.Arrancar());
        for (const auto &[clave, texto] :
             {std::pair{"Standard", "Standard"}, {"Basica", "Basic"}, {"Combinada", "Combined"},
              {"Blanco y Negro", "Black and White"}}) {
            const QString r = previa.aplicacion().datos().EjecutarSQL(
                QStringLiteral("INSERT INTO TXIDIOMA (Idioma, ClaveTexto, Texto) VALUES "
                               "('Ingles', '%1', '%2')")
                    .arg(QLatin1String(clave), QLatin1String(texto)),
                QStringLiteral("DatabaseGeneral"));
            ASSERT_FALSE(r.startsWith(QStringLiteral("Error"))) << r.toStdString();
        }
    }
    OpcionesArranque o = opciones(QStringLiteral("ADMIN"));
    o.linea.ParametroIdioma = QStringLiteral("Ingles");
    session_ = std::make_unique<DesktopSession>(o, &port_);
    session_->AbrirAlArrancar(QStringLiteral("Globales"));
    ASSERT_TRUE(session_->Arrancar()) << port_.texts().join(u'\n').toStdString();
    QMdiSubWindow *w = session_->ventana()->mdi()->activeSubWindow();
    ASSERT_NE(w, nullptr);
    auto *view = dynamic_cast<FormView *>(w->widget());
    ASSERT_NE(view, nullptr);
    auto *lista = qobject_cast<QComboBox *>(view->widgetFor(QStringLiteral("ComboBoxTipoCombinacionTramas")));
    ASSERT_NE(lista, nullptr);
    QStringList mostrados;
    for (int i = 0; i < lista->count(); ++i)
        mostrados << lista->itemText(i);
    EXPECT_EQ(mostrados, (QStringList{"Standard", "Basic", "Combined", "Black and White"}));
    EXPECT_EQ(lista->currentText(), QStringLiteral("Standard"));
    // Down three times, as the keyboard picks, and the record takes the stored value.
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(lista, Qt::Key_Down);
    EXPECT_EQ(lista->currentText(), QStringLiteral("Black and White"));
    auto *grabar = qobject_cast<QPushButton *>(view->widgetFor(QStringLiteral("pbGrabar")));
    ASSERT_NE(grabar, nullptr);
    QTest::mouseClick(grabar, Qt::LeftButton);
    EXPECT_EQ(session_->aplicacion().datos().EjecutarSQL(
                  QStringLiteral("SELECT TipoCombinacionTramas FROM PARAGENE WHERE IdRegistro = 1")),
              QStringLiteral("Blanco y Negro"))
        << port_.texts().join(u'\n').toStdString();
}

CO_ON_BOTH_BACKENDS(TranslatedLists);

} // namespace
} // namespace co::ui
