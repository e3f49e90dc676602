// The rate listing from the main menu, on both back-ends: the menu entry opens
// the filter window drawn from its form, what the user types and ticks reaches
// the form, and `pbListar` opens the preview with the listing's pages.
#include "ui/desktop_session.h"
#include "ui/listing_screens.h"
#include "ui/main_window.h"
#include "ui/report_preview.h"

#include "desktop_fixture.h"

#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

// Replaces the edit's text key by key, as the keyboard does.
void teclear(QLineEdit *edit, const QString &digitos) {
    auto tecla = [edit](int key, const QString &texto) {
        QKeyEvent e(QEvent::KeyPress, key, Qt::NoModifier, texto);
        QCoreApplication::sendEvent(edit, &e);
    };
    edit->end(false);
    for (qsizetype n = edit->text().size(); n > 0; --n)
        tecla(Qt::Key_Backspace, {});
    for (const QChar d : digitos)
        tecla(Qt::Key_0 + d.digitValue(), QString(d));
}

class RateListingWindow : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        TModuloDatos &datos = session_->aplicacion().datos();
        for (const char *sql :
             {"INSERT INTO TARFMAQ (Codigo, Descripcion) VALUES ('7', 'Tarifa Siete')",
              "INSERT INTO LTARFMAQ (Codigo, CodigoUnidad, Descripcion, DescripcionAmpliada, "
              "PrecioCosto, PrecioVenta) VALUES ('7', 'HORA', 'Hora de grúa', 'Con gruista', "
              "'40', '55')",
              "INSERT INTO LTARFMAQ (Codigo, CodigoUnidad, Descripcion, DescripcionAmpliada, "
              "PrecioCosto, PrecioVenta) VALUES ('8', 'DIA', 'Día de pala', '', '1', '2')"})
            ASSERT_FALSE(datos.EjecutarSQL(QString::fromUtf8(sql)).startsWith(u"Error."));
    }
    // The work windows of the MDI area, by object name.
    QWidget *ventana(const QString &nombre) const {
        for (QMdiSubWindow *w : session_->ventana()->mdi()->subWindowList())
            if (w->widget() && w->widget()->objectName() == nombre)
                return w->widget();
        return nullptr;
    }
};

TEST_P(RateListingWindow, TheMenuOpensTheFilterWindowAndListarOpensThePreview) {
    QAction *entrada = session_->ventana()->accion(QStringLiteral("ListadodeTarifas1"));
    ASSERT_NE(entrada, nullptr);
    entrada->trigger();
    auto *filtro = dynamic_cast<TfOBRALTAR *>(ventana(QStringLiteral("fOBRALTAR")));
    ASSERT_NE(filtro, nullptr) << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(filtro->windowTitle(), QStringLiteral("Listado de Tarifas"));

    auto *desde = qobject_cast<QLineEdit *>(filtro->widgetFor(QStringLiteral("DesdeTarifa")));
    auto *hasta = qobject_cast<QLineEdit *>(filtro->widgetFor(QStringLiteral("HastaTarifa")));
    auto *mas =
        qobject_cast<QCheckBox *>(filtro->widgetFor(QStringLiteral("ListarConMasDescripcion")));
    auto *previa =
        qobject_cast<QCheckBox *>(filtro->widgetFor(QStringLiteral("VisualizacionPrevia")));
    ASSERT_TRUE(desde && hasta && mas && previa);
    EXPECT_EQ(desde->text(), QStringLiteral("0"));
    EXPECT_EQ(hasta->text(), QStringLiteral("999"));
    EXPECT_TRUE(previa->isChecked());
    teclear(hasta, QStringLiteral("7"));
    mas->setChecked(true);
    EXPECT_EQ(filtro->filtro().Texto(QStringLiteral("HastaTarifa")), QStringLiteral("7"));
    EXPECT_TRUE(filtro->filtro().Marcado(QStringLiteral("ListarConMasDescripcion")));

    qobject_cast<QPushButton *>(filtro->widgetFor(QStringLiteral("pbListar")))->click();
    EXPECT_EQ(filtro->filtro().parametros().HastaTarifa, 7);
    auto *preview = dynamic_cast<TfGENEPREV *>(ventana(QStringLiteral("fGENEPREV")));
    ASSERT_NE(preview, nullptr) << port_.texts().join(u'\n').toStdString();
    EXPECT_FALSE(preview->Construyendo());
    EXPECT_EQ(preview->Paginas(), 1);
    EXPECT_EQ(preview->Estado(), QStringLiteral("Finalizada"));
    EXPECT_EQ(filtro->findChild<QLabel *>(QStringLiteral("StatusBar1"))->text(), QString())
        << "the status is cleared after the run";
}

TEST_P(RateListingWindow, ARefusedRangeShowsTheFormsMessageAndSalirCloses) {
    session_->ventana()->accion(QStringLiteral("ListadodeTarifas1"))->trigger();
    auto *filtro = dynamic_cast<TfOBRALTAR *>(ventana(QStringLiteral("fOBRALTAR")));
    ASSERT_NE(filtro, nullptr);
    auto *desde = qobject_cast<QLineEdit *>(filtro->widgetFor(QStringLiteral("DesdeTarifa")));
    teclear(desde, QStringLiteral("900"));
    auto *hasta = qobject_cast<QLineEdit *>(filtro->widgetFor(QStringLiteral("HastaTarifa")));
    teclear(hasta, QStringLiteral("5"));
    port_.clear();
    qobject_cast<QPushButton *>(filtro->widgetFor(QStringLiteral("pbListar")))->click();
    EXPECT_EQ(port_.texts(),
              QStringList{QStringLiteral("¡La tarifa inicial no puede ser mayor que la final!")});
    EXPECT_EQ(ventana(QStringLiteral("fGENEPREV")), nullptr);
    qobject_cast<QPushButton *>(filtro->widgetFor(QStringLiteral("pbSalir")))->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(ventana(QStringLiteral("fOBRALTAR")), nullptr);
}

CO_ON_BOTH_BACKENDS(RateListingWindow);

} // namespace
} // namespace co::ui
