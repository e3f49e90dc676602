// A small master through its real widgets, offscreen: opened from the main
// window's menu, a row typed into the grid and posted, the window closed and
// opened again, and a repeated key refused with the focus kept, on both
// back-ends.
#include "desktop_fixture.h"
#include "form_view_driver.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

namespace co::ui {
namespace {

class MasterScreens : public test::DesktopTest {
protected:
    // Opens a master as the user does, by its menu entry.
    FormView *abrir(DesktopSession &session, const QString &entrada) {
        session.ventana()->accion(entrada)->trigger();
        QMdiSubWindow *w = session.ventana()->mdi()->activeSubWindow();
        if (!w)
            return nullptr;
        auto *view = dynamic_cast<FormView *>(w->widget());
        if (view)
            (void)QTest::qWaitForWindowActive(session.ventana());
        return view;
    }
};

TEST_P(MasterScreens, ARowTypedIntoTheGridIsThereWhenTheWindowOpensAgain) {
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar()) << port_.texts().join(u'\n').toStdString();
    port_.clear();
    session.ventana()->show();
    const QString entrada = QStringLiteral("MaestrodeMaquinas1");
    FormView *view = abrir(session, entrada);
    ASSERT_NE(view, nullptr);
    test::FormViewDriver d(*view);
    EXPECT_EQ(view->windowTitle(), QStringLiteral("Maestro de Maquinas"));
    d.click(QStringLiteral("pbAgregar"));
    EXPECT_EQ(d.grid().currentIndex().column(), 0) << "a new row starts on the key";
    d.typeInCell(QStringLiteral("EXC"));
    EXPECT_EQ(d.grid().currentIndex().column(), 1);
    d.typeInCell(QStringLiteral("Excavadora"));
    d.click(QStringLiteral("pbConforme"));
    EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
    EXPECT_TRUE(view->statusText() == QStringLiteral("Agregando registro")) << "entry goes on";
    // Closing with the next new row still empty drops it.
    port_.answer(QStringLiteral("NO"));
    session.ventana()->mdi()->activeSubWindow()->close();
    QTest::qWait(0);
    EXPECT_TRUE(session.ventana()->mdi()->subWindowList().isEmpty());

    view = abrir(session, entrada);
    ASSERT_NE(view, nullptr);
    test::FormViewDriver again(*view);
    ASSERT_EQ(again.rows(), 1);
    EXPECT_EQ(again.cell(0, 0), QStringLiteral("EXC"));
    EXPECT_EQ(again.cell(0, 1), QStringLiteral("Excavadora"));
}

TEST_P(MasterScreens, ARepeatedKeyIsRefusedAndTheFocusStaysOnIt) {
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar()) << port_.texts().join(u'\n').toStdString();
    port_.clear();
    session.ventana()->show();
    FormView *view = abrir(session, QStringLiteral("MaestrodeUnidades1"));
    ASSERT_NE(view, nullptr);
    test::FormViewDriver d(*view);
    d.click(QStringLiteral("pbAgregar"));
    d.typeInCell(QStringLiteral("KG"));
    d.typeInCell(QStringLiteral("Kilogramo"), Qt::Key_Return);
    d.click(QStringLiteral("pbConforme"));
    ASSERT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
    d.typeInCell(QStringLiteral("KG"));
    EXPECT_EQ(port_.texts().value(0), QStringLiteral("¡ Ya existe el registro !"));
    EXPECT_EQ(d.grid().currentIndex().column(), 0) << "the focus stays on the key";
    EXPECT_TRUE(view->statusText() == QStringLiteral("Agregando registro"));
    EXPECT_EQ(d.cell(d.rows() - 1, 0), QStringLiteral("KG")) << "what was typed stays";
}

CO_ON_BOTH_BACKENDS(MasterScreens);

} // namespace
} // namespace co::ui
