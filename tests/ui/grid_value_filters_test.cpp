// The grid's context menu of a record screen filters its rows by the value of
// the column under the mouse, as a clerk narrows a long list, and gives them
// all back with "Cancelar Filtros"; a value the column cannot compare is told.
#include "desktop_fixture.h"

#include "ui/dataset_model.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTableView>
#include <QTest>
#include <QTimer>

namespace co::ui {
namespace {

class GridValueFilters : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        for (const char *fila : {"('KG', 'Kilogramo', 21)", "('M2', 'Metro cuadrado', 21)",
                                 "('M3', 'Metro cubico', 10)", "('TN', 'Tonelada', 21)"}) {
            const QString r = session_->aplicacion().datos().EjecutarSQL(
                QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion, PorcentajeIVA) VALUES ") +
                QLatin1String(fila));
            ASSERT_FALSE(r.startsWith(QStringLiteral("Error"))) << r.toStdString();
        }
        FormView *vista = abrirMaximizada(QStringLiteral("MaestrodeUnidades1"));
        ASSERT_NE(vista, nullptr) << port_.texts().join(u'\n').toStdString();
        grid_ = vista->grid(QStringLiteral("DBGrid1"));
        modelo_ = dynamic_cast<DatasetModel *>(grid_->model());
        ASSERT_NE(modelo_, nullptr);
        port_.clear();
    }
    int columna(const QString &campo) const {
        for (int c = 0; c < modelo_->columnCount(); ++c)
            if (modelo_->field(c) && modelo_->field(c)->FieldName() == campo)
                return c;
        return -1;
    }
    // A right click on a cell, and `letra` typed in the menu that opens.
    void menu(int fila, const QString &campo, Qt::Key letra) {
        const int c = columna(campo);
        ASSERT_GE(c, 0) << campo.toStdString();
        const QPoint p = grid_->visualRect(modelo_->index(fila, c)).center();
        bool visto = false;
        QTimer::singleShot(0, [&] {
            auto *m = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!m)
                return;
            visto = true;
            QTest::keyClick(m, letra);
        });
        QContextMenuEvent clic(QContextMenuEvent::Mouse, p, grid_->viewport()->mapToGlobal(p));
        QApplication::sendEvent(grid_->viewport(), &clic);
        EXPECT_TRUE(visto) << "no context menu";
    }
    QStringList codigos() const {
        QStringList out;
        for (int r = 0; r < modelo_->rowCount(); ++r)
            out << modelo_->index(r, columna(QStringLiteral("Codigo"))).data().toString();
        return out;
    }
    QTableView *grid_ = nullptr;
    DatasetModel *modelo_ = nullptr;
};

TEST_P(GridValueFilters, FromAValueThenEqualToAnotherThenAllAgain) {
    ASSERT_EQ(codigos(), (QStringList{"KG", "M2", "M3", "TN"}));
    port_.answer(QStringLiteral("M2"));
    menu(1, QStringLiteral("Codigo"), Qt::Key_D); // Desde, on M2's code
    EXPECT_EQ(port_.shown().value(0).text, QStringLiteral("Introduzca el valor Desde Codigo"));
    EXPECT_EQ(codigos(), (QStringList{"M2", "M3", "TN"}));
    // A second filter narrows the first.
    port_.answer(QStringLiteral("21"));
    menu(0, QStringLiteral("PorcentajeIVA"), Qt::Key_I); // Igual a
    EXPECT_EQ(codigos(), (QStringList{"M2", "TN"}));
    menu(0, QStringLiteral("Codigo"), Qt::Key_C); // Cancelar Filtros
    EXPECT_EQ(codigos(), (QStringList{"KG", "M2", "M3", "TN"}));
}

TEST_P(GridValueFilters, AValueTheColumnCannotCompareIsToldAndTheRowsStay) {
    port_.answer(QStringLiteral("M"));
    menu(0, QStringLiteral("Codigo"), Qt::Key_D);
    ASSERT_EQ(codigos(), (QStringList{"M2", "M3", "TN"}));
    port_.clear();
    port_.answer(QStringLiteral("abc"));
    menu(0, QStringLiteral("PorcentajeIVA"), Qt::Key_H); // Hasta
    EXPECT_TRUE(port_.texts().contains(QStringLiteral("¡No ha sido posible filtrar registros!")))
        << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(codigos(), (QStringList{"M2", "M3", "TN"})) << "the former filter stays";
}

TEST_P(GridValueFilters, NotOfferedWhileARecordIsPending) {
    // Alt letters reach the buttons of the active window only.
    session_->ventana()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(session_->ventana()));
    grid_->setFocus();
    QTest::keyClick(grid_, Qt::Key_A, Qt::AltModifier); // Agregar
    ASSERT_TRUE(modelo_->rowCount() == 5) << "a new row to type into";
    bool visto = false;
    bool desactivados = false;
    QTimer::singleShot(0, [&] {
        auto *m = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!m)
            return;
        visto = true;
        desactivados = true;
        for (QAction *a : m->actions())
            desactivados = desactivados && (a->isSeparator() || !a->isEnabled());
        m->close();
    });
    const QPoint p = grid_->visualRect(modelo_->index(0, 0)).center();
    QContextMenuEvent clic(QContextMenuEvent::Keyboard, p, grid_->viewport()->mapToGlobal(p));
    QApplication::sendEvent(grid_->viewport(), &clic);
    ASSERT_TRUE(visto) << "no context menu";
    EXPECT_TRUE(desactivados);
}

CO_ON_BOTH_BACKENDS(GridValueFilters);

} // namespace
} // namespace co::ui
