// The search window in the desktop program, offscreen: F2 on the supplier
// column of the subcontract master opens "Buscar en la tabla PROVEEDR"; a code
// typed and Enter searches, Enter in the grid accepts, and the code lands in
// the record; a double click does the same. Esc leaves the record as it was.
// An unlimited answer grows as the grid scrolls; the grid's pop-up filters and
// Ctrl+L act on what it shows.
#include "core/installation.h"
#include "ui/desktop_session.h"
#include "ui/form_view.h"
#include "works/subcontracts_master.h"

#include "desktop_fixture.h"
#include "font_answer.h"
#include <QCheckBox>
#include <QComboBox>

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProcess>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

void pulsar(QWidget *w, int key, Qt::KeyboardModifiers m = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, m);
    QApplication::sendEvent(w, &press);
}

class SearchWindow : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        TModuloDatos &d = session_->aplicacion().datos();
        for (const char *fila : {"(41, 'Hierros Norte')", "(42, 'Gruas Sur')", "(43, 'Andamios')"})
            ASSERT_FALSE(
                d.EjecutarSQL(QStringLiteral("INSERT INTO PROVEEDR (Codigo, Nombre) VALUES %1")
                                  .arg(QString::fromLatin1(fila)))
                    .startsWith(QStringLiteral("Error.")));
        session_->ventana()->accion(QStringLiteral("MaestrodeSubContrataciones1"))->trigger();
        const auto ventanas = session_->ventana()->mdi()->subWindowList();
        ASSERT_EQ(ventanas.size(), 1);
        view_ = dynamic_cast<FormView *>(ventanas.first()->widget());
        ASSERT_NE(view_, nullptr);
    }
    // F2 (or a double click) on the supplier column, with `guion` run in the
    // search window once it shows.
    void f2EnProveedor(const std::function<void(QDialog &)> &guion, bool dobleClic = false) {
        auto &form = static_cast<works::TfOBRASUBC &>(view_->form());
        QTableView *grid = view_->grid(QStringLiteral("DBGrid1"));
        ASSERT_NE(grid, nullptr);
        // A new record, with the supplier column current in the view.
        if (!form.Table1().IsPending()) {
            ASSERT_TRUE(form.Rutinas().Ejecutar([&] {
                form.Click(QStringLiteral("Agregar"));
                form.Table1()
                    .FieldByName(QStringLiteral("Codigo"))
                    .SetAsString(QStringLiteral("S1"));
            }));
            view_->refresh();
        }
        int col = 0;
        while (col < grid->model()->columnCount() &&
               grid->model()->headerData(col, Qt::Horizontal).toString() != u"Proveedor")
            ++col;
        ASSERT_LT(col, grid->model()->columnCount());
        grid->setFocus();
        grid->setCurrentIndex(grid->model()->index(0, 0));
        grid->setCurrentIndex(grid->model()->index(0, col));
        ASSERT_EQ(form.DBGrid1().SelectedField()->FieldName(), QStringLiteral("CodigoProveedor"));
        bool visto = false;
        QTimer::singleShot(0, [&] {
            auto *d = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(d, nullptr);
            visto = true;
            EXPECT_EQ(d->windowTitle(), QStringLiteral("Buscar en la tabla PROVEEDR"));
            guion(*d);
            if (d->isVisible())
                d->reject();
        });
        if (dobleClic) {
            const QRect celda = grid->visualRect(grid->currentIndex());
            QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, celda.center());
            EXPECT_EQ(grid->indexWidget(grid->currentIndex()), nullptr) << "no cell editor";
        } else {
            pulsar(grid, Qt::Key_F2);
        }
        EXPECT_TRUE(visto);
    }
    // Types a code into DatoABuscar and presses Enter.
    static void buscar(QDialog &d, const QString &codigo) {
        auto *dato = d.findChild<QLineEdit *>(QStringLiteral("DatoABuscar"));
        ASSERT_NE(dato, nullptr);
        dato->setFocus();
        dato->setText(codigo);
        Q_EMIT dato->textEdited(dato->text());
        pulsar(dato, Qt::Key_Return);
    }
    static QStringList codigos(QTableView &grid) {
        QStringList out;
        for (int r = 0; r < grid.model()->rowCount(); ++r)
            out << grid.model()->index(r, 0).data().toString();
        return out;
    }
    QString proveedor() {
        auto &form = static_cast<works::TfOBRASUBC &>(view_->form());
        return form.Table1().FieldByName(QStringLiteral("CodigoProveedor")).AsString();
    }

    FormView *view_ = nullptr;
};

TEST_P(SearchWindow, F2SearchesSuppliersAndEnterPutsTheCodeInTheRecord) {
    f2EnProveedor([](QDialog &d) {
        auto *dato = d.findChild<QLineEdit *>(QStringLiteral("DatoABuscar"));
        auto *grid = d.findChild<QTableView *>(QStringLiteral("DBGrid1"));
        ASSERT_TRUE(dato && grid);
        dato->setFocus();
        dato->setText(QStringLiteral("42"));
        Q_EMIT dato->textEdited(dato->text());
        pulsar(dato, Qt::Key_Return);
        ASSERT_NE(grid->model(), nullptr);
        EXPECT_EQ(grid->model()->rowCount(), 2) << "42 and upward";
        EXPECT_EQ(grid->model()->index(0, 0).data().toString(), QStringLiteral("42"));
        pulsar(grid, Qt::Key_Return);
        EXPECT_FALSE(d.isVisible());
    });
    EXPECT_EQ(proveedor(), QStringLiteral("42"));

    f2EnProveedor([](QDialog &d) {
        auto *dato = d.findChild<QLineEdit *>(QStringLiteral("DatoABuscar"));
        pulsar(dato, Qt::Key_Escape);
        EXPECT_FALSE(d.isVisible());
    });
    EXPECT_EQ(proveedor(), QStringLiteral("42"));

    // A double click on the column opens the same search.
    f2EnProveedor(
        [](QDialog &d) {
            buscar(d, QStringLiteral("43"));
            pulsar(d.findChild<QTableView *>(QStringLiteral("DBGrid1")), Qt::Key_Return);
            EXPECT_FALSE(d.isVisible());
        },
        true);
    EXPECT_EQ(proveedor(), QStringLiteral("43"));
}

TEST_P(SearchWindow, MemoColumnsShowTheirTextOnOneLineWhenAsked) {
    ASSERT_FALSE(
        session_->aplicacion()
            .datos()
            .EjecutarSQL(
                QStringLiteral("UPDATE PROVEEDR SET Instrucciones = "
                               "'Llamar antes' || CHAR(10) || 'de las 8' WHERE Codigo = 43")
                    .replace(QStringLiteral("CHAR(10)"), GetParam() == Backend::SQLite
                                                             ? QStringLiteral("CHAR(10)")
                                                             : QStringLiteral("CHR(10)")))
            .startsWith(QStringLiteral("Error.")));
    // The option takes effect on the next search window, once a record was chosen with it.
    f2EnProveedor([](QDialog &d) {
        auto *dato = d.findChild<QLineEdit *>(QStringLiteral("DatoABuscar"));
        auto *memos = d.findChild<QCheckBox *>(QStringLiteral("MostrarCamposMemo"));
        auto *grid = d.findChild<QTableView *>(QStringLiteral("DBGrid1"));
        ASSERT_TRUE(dato && memos && grid);
        memos->click();
        dato->setText(QStringLiteral("43"));
        Q_EMIT dato->textEdited(dato->text());
        pulsar(dato, Qt::Key_Return);
        pulsar(grid, Qt::Key_Return);
    });
    EXPECT_EQ(proveedor(), QStringLiteral("43"));
    f2EnProveedor([](QDialog &d) {
        auto *dato = d.findChild<QLineEdit *>(QStringLiteral("DatoABuscar"));
        auto *grid = d.findChild<QTableView *>(QStringLiteral("DBGrid1"));
        ASSERT_TRUE(dato && grid);
        dato->setText(QStringLiteral("43"));
        Q_EMIT dato->textEdited(dato->text());
        pulsar(dato, Qt::Key_Return);
        ASSERT_GE(grid->model()->rowCount(), 1);
        QStringList fila;
        for (int c = 0; c < grid->model()->columnCount(); ++c)
            fila << grid->model()->index(0, c).data().toString();
        EXPECT_TRUE(fila.contains(QStringLiteral("Llamar antes de las 8")))
            << fila.join(u'|').toStdString();
    });
}

TEST_P(SearchWindow, AnUnlimitedAnswerGrowsAsTheGridScrolls) {
    QStringList filas;
    for (int codigo = 101; codigo <= 347; ++codigo)
        filas << QStringLiteral("(%1, 'Proveedor %1')").arg(codigo);
    ASSERT_FALSE(session_->aplicacion()
                     .datos()
                     .EjecutarSQL(QStringLiteral("INSERT INTO PROVEEDR (Codigo, Nombre) VALUES ") +
                                  filas.join(u','))
                     .startsWith(QStringLiteral("Error.")));
    QStringList esperados{QStringLiteral("41"), QStringLiteral("42"), QStringLiteral("43")};
    for (int codigo = 101; codigo <= 347; ++codigo)
        esperados << QString::number(codigo);
    f2EnProveedor([&](QDialog &d) {
        auto *limite = d.findChild<QComboBox *>(QStringLiteral("NumeroMaximoRegistros"));
        auto *grid = d.findChild<QTableView *>(QStringLiteral("DBGrid1"));
        ASSERT_TRUE(limite && grid);
        limite->setCurrentText(QStringLiteral("Ilimitado"));
        buscar(d, QStringLiteral("41"));
        ASSERT_NE(grid->model(), nullptr);
        const int primeras = grid->model()->rowCount();
        EXPECT_LT(primeras, 250) << "not everything at once";
        EXPECT_TRUE(grid->model()->canFetchMore({}));
        QList<int> vistas{primeras};
        for (int i = 0; i < 20 && grid->model()->canFetchMore({}); ++i) {
            grid->scrollToBottom();
            QCoreApplication::processEvents();
            vistas << grid->model()->rowCount();
        }
        EXPECT_EQ(vistas.last(), 250);
        EXPECT_TRUE(std::is_sorted(vistas.begin(), vistas.end()));
        EXPECT_GT(vistas.size(), 2) << "it grew step by step";
        EXPECT_EQ(codigos(*grid), esperados) << "in key order, none repeated or missed";
        grid->setFocus();
        grid->setCurrentIndex(grid->model()->index(240, 0));
        pulsar(grid, Qt::Key_Return);
        EXPECT_FALSE(d.isVisible());
    });
    EXPECT_EQ(proveedor(), esperados[240]);
    EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
}

TEST_P(SearchWindow, GridFiltersAskWithTheCurrentValueAndACancelKeepsTheRows) {
    f2EnProveedor([&](QDialog &d) {
        auto *grid = d.findChild<QTableView *>(QStringLiteral("DBGrid1"));
        ASSERT_NE(grid, nullptr);
        buscar(d, QStringLiteral("41"));
        ASSERT_EQ(codigos(*grid), (QStringList{"41", "42", "43"}));
        grid->setCurrentIndex(grid->model()->index(1, 0));
        auto *igual = grid->findChild<QAction *>(QStringLiteral("FiltrarRegistrosporValorIguala"));
        auto *desde = grid->findChild<QAction *>(QStringLiteral("FiltrarRegistrosporValorDesde"));
        auto *cancelar = grid->findChild<QAction *>(QStringLiteral("CancelarFiltros1"));
        ASSERT_TRUE(igual && desde && cancelar);
        EXPECT_TRUE(grid->actions().contains(igual)) << "on the grid's pop-up menu";
        port_.cancel();
        igual->trigger();
        EXPECT_EQ(codigos(*grid), (QStringList{"41", "42", "43"})) << "cancelled";
        igual->trigger(); // the proposed value accepted
        EXPECT_EQ(codigos(*grid), QStringList{"42"});
        cancelar->trigger();
        EXPECT_EQ(codigos(*grid), (QStringList{"41", "42", "43"}));
        port_.answer(QStringLiteral("43"));
        desde->trigger();
        EXPECT_EQ(codigos(*grid), QStringList{"43"});
    });
    EXPECT_EQ(port_.texts(), (QStringList{QStringLiteral("Introduzca el valor del campo Codigo"),
                                          QStringLiteral("Introduzca el valor del campo Codigo"),
                                          QStringLiteral("Introduzca el valor Desde Codigo")}));
}

TEST_P(SearchWindow, CtrlLOnTheGridGivesItTheChosenFont) {
    f2EnProveedor([&](QDialog &d) {
        auto *grid = d.findChild<QTableView *>(QStringLiteral("DBGrid1"));
        ASSERT_NE(grid, nullptr);
        buscar(d, QStringLiteral("41"));
        const QFont antes = grid->font();
        const QColor tituloAntes = test::titulos(*grid);
        test::RespuestaFuente respuesta(std::nullopt);
        pulsar(grid, Qt::Key_L, Qt::ControlModifier);
        ASSERT_EQ(respuesta.abiertas.size(), 1);
        EXPECT_EQ(grid->font(), antes) << "cancelled";
        EXPECT_EQ(test::titulos(*grid), tituloAntes);
        respuesta.responder(test::fuenteElegida());
        pulsar(grid, Qt::Key_L, Qt::ControlModifier);
        test::esperarFuenteEnRejilla(*grid, test::fuenteElegida());
        // Another search draws a new answer in the same font.
        buscar(d, QStringLiteral("42"));
        EXPECT_EQ(codigos(*grid), (QStringList{"42", "43"}));
        test::esperarFuenteEnRejilla(*grid, test::fuenteElegida());
        EXPECT_TRUE(d.isVisible());
    });
}

CO_ON_BOTH_BACKENDS(SearchWindow);

} // namespace
} // namespace co::ui
