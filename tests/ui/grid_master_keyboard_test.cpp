// The small grid masters as a clerk uses them, by keyboard alone: the screen
// opened by the program's own start-up option, Alt letters for the buttons,
// typing into whatever has the focus, F2 and the search window, and the
// database read afterwards, on both back-ends.
#include "desktop_fixture.h"
#include "form_view_driver.h"
#include "ui/message_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTableView>
#include <QTest>
#include <QTimer>

namespace co::ui {
namespace {

// A master: its menu program, table, a new code with its description, and a
// changed description.
struct Maestro {
    QString programa;
    QString tabla;
    QString codigo;
    QString descripcion;
    QString otra;
};

// The real message window, shown modally and closed with Enter as a clerk
// would; every text is kept, and so is whether Enter closed it.
class MensajesEnVentana : public MessagePort {
public:
    QString show(QChar kind, const QString &text, const QString &value) override {
        textos << text;
        QTimer::singleShot(0, [this] {
            QWidget *d = QApplication::activeModalWidget();
            if (!d)
                return;
            QTest::keyClick(test::DestinoTeclas(), Qt::Key_Return);
            if (d->isVisible()) {
                abiertas << d->windowTitle();
                static_cast<QDialog *>(d)->reject(); // so that the test ends and tells
            }
        });
        const QString respuesta = ventana.show(kind, text, value);
        test::ReactivarVentanaPrincipal();
        return respuesta;
    }
    QStringList abiertas; // message windows that Enter did not close
    QStringList textos;
    DialogMessages ventana;
};

class GridMasterKeyboard : public test::DesktopTest {
protected:
    // Where the keyboard's keys go.
    static QWidget *foco() { return test::DestinoTeclas(); }
    static void tecla(Qt::Key key, Qt::KeyboardModifiers m = Qt::NoModifier) {
        test::PulsarTecla(key, m);
    }
    static void alt(Qt::Key letra) { tecla(letra, Qt::AltModifier); }
    static void teclear(const QString &texto) { test::Teclear(texto); }
    QString descripcion(const Maestro &m) {
        return valor(QStringLiteral("SELECT Descripcion FROM %1 WHERE Codigo = '%2'")
                         .arg(m.tabla, m.codigo));
    }
    // F2 on the focused cell; `guion` runs in the search window once it shows.
    void f2(const std::function<void()> &guion) {
        const bool visto =
            test::EnVentanaModal([] { tecla(Qt::Key_F2); }, [&](QWidget &) { guion(); });
        EXPECT_TRUE(visto) << "F2 opened no search window";
    }
    // Add, edit, edit after a search by the key, delete: keys only.
    void recorrido(const Maestro &m) {
        FormView *view = arrancarEn(m.programa);
        ASSERT_NE(view, nullptr) << port_.texts().join(u'\n').toStdString();
        QTableView &grid = *view->grid(QStringLiteral("DBGrid1"));
        EXPECT_EQ(view->windowTitle(), m.programa);

        alt(Qt::Key_A); // &Agregar
        ASSERT_EQ(grid.verticalHeader()->count(), 1) << "the new record's row is on the screen";
        EXPECT_EQ(view->statusText(), QStringLiteral("Agregando registro"));
        EXPECT_EQ(foco(), &grid);
        teclear(m.codigo);
        tecla(Qt::Key_Tab);
        teclear(m.descripcion);
        tecla(Qt::Key_Tab);
        guardarCaptura(m.tabla.toLower() + QStringLiteral("-adding.png"));
        alt(Qt::Key_C); // &Conforme
        EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
        EXPECT_EQ(descripcion(m), m.descripcion);
        EXPECT_EQ(valor(QStringLiteral("SELECT COUNT(*) FROM %1").arg(m.tabla)),
                  QStringLiteral("1"));

        // The entry goes on with a new row; C&ancelar drops it.
        alt(Qt::Key_A);
        EXPECT_EQ(view->statusText(), QStringLiteral("Registro 1"));
        ASSERT_EQ(grid.verticalHeader()->count(), 1);

        // A typed change of the description.
        grid.setFocus();
        tecla(Qt::Key_Home);
        tecla(Qt::Key_Right);
        teclear(m.otra);
        tecla(Qt::Key_Tab);
        alt(Qt::Key_C);
        EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
        EXPECT_EQ(descripcion(m), m.otra);

        port_.answer(QStringLiteral("SI"));
        alt(Qt::Key_E); // &Eliminar, confirmed
        EXPECT_EQ(valor(QStringLiteral("SELECT COUNT(*) FROM %1").arg(m.tabla)),
                  QStringLiteral("0"));
        EXPECT_EQ(grid.verticalHeader()->count(), 0);
    }
};

TEST_P(GridMasterKeyboard, AChangeTypedAfterF2IsKept) {
    const Maestro k{QStringLiteral("Maestro de Unidades"), QStringLiteral("UNIDADOB"),
                    QStringLiteral("M2"), QStringLiteral("Metro cuadrado"),
                    QStringLiteral("Metro cuadrado de solado")};
    FormView *view = arrancarEn(k.programa);
    ASSERT_NE(view, nullptr);
    QTableView &grid = *view->grid(QStringLiteral("DBGrid1"));
    alt(Qt::Key_A);
    teclear(k.codigo);
    tecla(Qt::Key_Tab);
    teclear(k.otra);
    tecla(Qt::Key_Tab);
    alt(Qt::Key_C);
    alt(Qt::Key_A);
    // Back to the key, F2 finds the record, and the next typed change holds.
    tecla(Qt::Key_Home);
    f2([&] {
        EXPECT_TRUE(foco() && foco()->objectName() == u"DatoABuscar");
        teclear(k.codigo);
        tecla(Qt::Key_Return); // searches
        tecla(Qt::Key_Return); // accepts the row
    });
    EXPECT_EQ(foco(), &grid);
    tecla(Qt::Key_Right);
    teclear(k.descripcion);
    tecla(Qt::Key_Tab);
    alt(Qt::Key_C);
    EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(descripcion(k), k.descripcion) << "the change after F2 is kept";
}

TEST_P(GridMasterKeyboard, UnitsAreAddedEditedAndDeletedByKeyboard) {
    recorrido({QStringLiteral("Maestro de Unidades"), QStringLiteral("UNIDADOB"),
               QStringLiteral("M2"), QStringLiteral("Metro cuadrado"),
               QStringLiteral("Metro cuadrado de solado")});
}

TEST_P(GridMasterKeyboard, MachinesAreAddedEditedAndDeletedByKeyboard) {
    recorrido({QStringLiteral("Maestro de Maquinas"), QStringLiteral("MAQUINOB"),
               QStringLiteral("EXC"), QStringLiteral("Excavadora"),
               QStringLiteral("Excavadora de cadenas")});
}

TEST_P(GridMasterKeyboard, IncidentsAreAddedEditedAndDeletedByKeyboard) {
    recorrido({QStringLiteral("Maestro de Incidencias"), QStringLiteral("INCIDENC"),
               QStringLiteral("7"), QStringLiteral("Lluvia"), QStringLiteral("Lluvia intensa")});
}

TEST_P(GridMasterKeyboard, AfterABadNumberIsToldTheNextOneTypedIsKept) {
    MensajesEnVentana mensajes;
    session_ = std::make_unique<DesktopSession>(opciones(QStringLiteral("ADMIN")), &mensajes);
    session_->AbrirAlArrancar(QStringLiteral("Maestro de Maquinas"));
    ASSERT_TRUE(session_->Arrancar()) << mensajes.textos.join(u'\n').toStdString();
    session_->ventana()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(session_->ventana()));
    mensajes.textos.clear();
    alt(Qt::Key_A);
    teclear(QStringLiteral("EXC"));
    tecla(Qt::Key_Tab);
    teclear(QStringLiteral("Excavadora"));
    tecla(Qt::Key_Tab);
    teclear(QStringLiteral("4x"));
    tecla(Qt::Key_Tab);
    EXPECT_EQ(mensajes.textos, QStringList{QStringLiteral(
                                   "¡ El dato introducido no es válido !. Repita por favor.")});
    EXPECT_TRUE(mensajes.abiertas.isEmpty()) << "Enter closes the message window";
    teclear(QStringLiteral("42"));
    tecla(Qt::Key_Tab);
    alt(Qt::Key_C);
    EXPECT_EQ(mensajes.textos.size(), 1) << mensajes.textos.join(u'\n').toStdString();
    EXPECT_EQ(
        valor(QStringLiteral("SELECT CuotaHoraria1 FROM MAQUINOB WHERE Codigo = 'EXC'")).toDouble(),
        42.0);
    session_.reset(); // before the messages it shows through
}

TEST_P(GridMasterKeyboard, F2OnTheDescriptionFindsItWhateverTheCase) {
    // The table is made by its first opening; the rows go in before the next.
    ASSERT_NE(arrancarEn(QStringLiteral("Maestro de Unidades")), nullptr);
    session_->ventana()->mdi()->closeAllSubWindows();
    for (const char *fila :
         {"('M2', 'Metro cuadrado')", "('ML', 'Metro lineal')", "('KG', 'Kilogramo')"})
        ASSERT_FALSE(valor(QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion) VALUES %1")
                               .arg(QString::fromLatin1(fila)))
                         .startsWith(QStringLiteral("Error")));
    ASSERT_TRUE(session_->AbrirPrograma(QStringLiteral("Maestro de Unidades")));
    FormView *view = activa();
    ASSERT_NE(view, nullptr);
    QTableView &grid = *view->grid(QStringLiteral("DBGrid1"));
    grid.setFocus();
    tecla(Qt::Key_Home);
    tecla(Qt::Key_Right); // the description
    QStringList encontrados;
    QString titulo;
    f2([&] {
        auto *d = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        titulo = d->windowTitle();
        teclear(QStringLiteral("metro"));
        tecla(Qt::Key_Return);
        auto *filas = d->findChild<QTableView *>(QStringLiteral("DBGrid1"));
        ASSERT_NE(filas, nullptr);
        for (int r = 0; r < filas->model()->rowCount(); ++r)
            encontrados << filas->model()->index(r, 1).data().toString();
        // Every title reads whole.
        for (int c = 0; c < filas->model()->columnCount(); ++c) {
            const QString t = filas->model()->headerData(c, Qt::Horizontal).toString();
            EXPECT_GE(filas->columnWidth(c),
                      filas->horizontalHeader()->fontMetrics().horizontalAdvance(t))
                << t.toStdString();
        }
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Return); // accepts "Metro lineal"
    });
    EXPECT_EQ(titulo, QStringLiteral("Buscar en la tabla UNIDADOB"));
    EXPECT_EQ(encontrados,
              (QStringList{QStringLiteral("Metro cuadrado"), QStringLiteral("Metro lineal")}));
    EXPECT_EQ(grid.model()->index(grid.currentIndex().row(), 0).data().toString(),
              QStringLiteral("ML"))
        << "the record found is current";

    // The search window on another table shows none of this one's columns.
    ASSERT_TRUE(session_->AbrirPrograma(QStringLiteral("Maestro de Maquinas")));
    auto *maquinas =
        dynamic_cast<FormView *>(session_->ventana()->mdi()->activeSubWindow()->widget());
    ASSERT_NE(maquinas, nullptr);
    maquinas->grid(QStringLiteral("DBGrid1"))->setFocus();
    QStringList columnas;
    f2([&] {
        auto *filas =
            QApplication::activeModalWidget()->findChild<QTableView *>(QStringLiteral("DBGrid1"));
        for (int c = 0; c < filas->model()->columnCount(); ++c)
            columnas << filas->model()->headerData(c, Qt::Horizontal).toString();
    });
    for (const QString &c : columnas)
        EXPECT_FALSE(c.contains(QStringLiteral("Porcentaje")) ||
                     c.contains(QStringLiteral("Ampliada")))
            << columnas.join(u',').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Backends, GridMasterKeyboard,
                         ::testing::Values(Backend::SQLite, Backend::PostgreSQL),
                         co::test::backendName);

} // namespace
} // namespace co::ui
