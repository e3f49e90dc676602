// Ctrl+L on the grid of a master, pressed on the real widget offscreen: the
// font chosen goes to the cells and the titles, the titles turn navy; a
// cancelled dialog changes nothing. On both back-ends.
#include "desktop_fixture.h"
#include "font_answer.h"
#include "form_view_driver.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

namespace co::ui {
namespace {

class GridFont : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        session_->ventana()->show();
        session_->ventana()->accion(QStringLiteral("MaestrodeMaquinas1"))->trigger();
        QMdiSubWindow *w = session_->ventana()->mdi()->activeSubWindow();
        ASSERT_NE(w, nullptr);
        view_ = dynamic_cast<FormView *>(w->widget());
        ASSERT_NE(view_, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(session_->ventana()));
    }
    FormView *view_ = nullptr;
};

TEST_P(GridFont, CtrlLGivesTheChosenFontToCellsAndNavyTitles) {
    QTableView &grid = test::FormViewDriver(*view_).grid();
    grid.setFocus();
    const QFont antes = grid.font();
    const QColor tituloAntes = test::titulos(grid);
    ASSERT_NE(antes, test::fuenteElegida());
    ASSERT_NE(tituloAntes, QColor(0x00, 0x00, 0x80));

    test::RespuestaFuente respuesta(std::nullopt);
    QTest::keyClick(&grid, Qt::Key_L, Qt::ControlModifier);
    ASSERT_EQ(respuesta.abiertas.size(), 1) << "Ctrl+L opens the dialog";
    EXPECT_EQ(respuesta.abiertas.first(), antes) << "on the grid's own font";
    EXPECT_EQ(grid.font(), antes) << "cancelled";
    EXPECT_EQ(grid.horizontalHeader()->font(), antes);
    EXPECT_EQ(test::titulos(grid), tituloAntes);

    respuesta.responder(test::fuenteElegida());
    QTest::keyClick(&grid, Qt::Key_L, Qt::ControlModifier);
    ASSERT_EQ(respuesta.abiertas.size(), 2);
    test::esperarFuenteEnRejilla(grid, test::fuenteElegida());
    // The form's redraw keeps it.
    view_->refresh();
    test::esperarFuenteEnRejilla(grid, test::fuenteElegida());

    EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
}

CO_ON_BOTH_BACKENDS(GridFont);

} // namespace
} // namespace co::ui
