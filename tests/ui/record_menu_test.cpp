// The "Ficha" menu and the keys of a record screen in the real program: the
// screen opened by the program's start-up option or menu, keys sent where the
// keyboard sends them, menu items triggered, and the database read afterwards,
// on both back-ends.
#include "desktop_fixture.h"
#include "form_view_driver.h"

#include "core/keystroke_log.h"
#include "core/session.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

namespace co::ui {
namespace {

using test::DestinoTeclas;
using test::PulsarTecla;
using test::Teclear;

const QString kNoDisponible =
    QStringLiteral("Esta función aún no está disponible en esta versión.");
const QString kEliminar = QStringLiteral("¿ Está seguro de querer eliminar el registro ?");

// Columns of the units master, as declared.
enum ColumnaUnidades { kCodigo, kDescripcion, kAmpliada, kUnidad, kIva, kRecargo };

class RecordMenu : public test::DesktopTest {
protected:
    // The units master over `filas` ("('KG', 'Kilogramo', 'kg')"), its grid focused.
    FormView *unidades(const QStringList &filas) {
        // The table is made by the first opening; the rows go in before the next.
        if (!arrancarEn(QStringLiteral("Maestro de Unidades")))
            return nullptr;
        session_->ventana()->mdi()->closeAllSubWindows();
        for (const QString &f : filas) {
            const QString r = valor(
                QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion, Unidad) VALUES ") + f);
            EXPECT_FALSE(r.startsWith(QStringLiteral("Error"))) << r.toStdString();
        }
        if (!session_->AbrirPrograma(QStringLiteral("Maestro de Unidades")))
            return nullptr;
        FormView *v = activa();
        if (v)
            v->grid(QStringLiteral("DBGrid1"))->setFocus();
        return v;
    }
    static QAction *item(FormView &v, const QString &nombre) {
        return v.findChild<QAction *>(nombre);
    }
    int cuenta() { return valor(QStringLiteral("SELECT COUNT(*) FROM UNIDADOB")).toInt(); }
    // A cell chosen with the mouse.
    static void celda(QTableView &g, int fila, int columna) {
        g.setFocus();
        QTest::mouseClick(g.viewport(), Qt::LeftButton, {},
                          g.visualRect(g.model()->index(fila, columna)).center());
        ASSERT_EQ(g.currentIndex().row(), fila);
        ASSERT_EQ(g.currentIndex().column(), columna);
    }
    static QString texto(QTableView &g, int fila, int columna) {
        return g.model()->index(fila, columna).data().toString();
    }
    // The header's titles in the order they are seen, and their widths.
    static QStringList titulos(QTableView &g) {
        QStringList out;
        const QHeaderView *h = g.horizontalHeader();
        for (int i = 0; i < h->count(); ++i)
            out << g.model()->headerData(h->logicalIndex(i), Qt::Horizontal).toString();
        return out;
    }
    static QList<int> anchos(QTableView &g) {
        QList<int> out;
        const QHeaderView *h = g.horizontalHeader();
        for (int i = 0; i < h->count(); ++i)
            out << h->sectionSize(h->logicalIndex(i));
        return out;
    }
    QString mensajes() const { return port_.texts().join(u'\n'); }
};

TEST_P(RecordMenu, AgregarConDuplicacionCopiesTheCurrentRecordButItsKey) {
    FormView *v = unidades({QStringLiteral("('M2', 'Metro cuadrado', 'm2')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QAction *agregar = item(*v, QStringLiteral("Agregar"));
    ASSERT_NE(agregar, nullptr);
    EXPECT_EQ(agregar->text(), QStringLiteral("&Agregar"));
    EXPECT_FALSE(agregar->isChecked());

    PulsarTecla(Qt::Key_F5, Qt::ControlModifier);
    EXPECT_EQ(agregar->text(), QStringLiteral("&Agregar con Duplicación"));
    EXPECT_TRUE(agregar->isChecked());
    PulsarTecla(Qt::Key_A, Qt::AltModifier); // &Agregar
    ASSERT_EQ(v->statusText(), QStringLiteral("Agregando registro"));
    QTableView &g = *v->grid(QStringLiteral("DBGrid1"));
    EXPECT_EQ(texto(g, 1, kCodigo), QString()) << "the key is not copied";
    EXPECT_EQ(texto(g, 1, kDescripcion), QStringLiteral("Metro cuadrado"));
    Teclear(QStringLiteral("M3"));
    PulsarTecla(Qt::Key_Tab);
    PulsarTecla(Qt::Key_C, Qt::AltModifier); // &Conforme
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
    EXPECT_EQ(valor(QStringLiteral("SELECT Descripcion, Unidad FROM UNIDADOB WHERE Codigo = 'M3'")),
              QStringLiteral("Metro cuadrado|m2"));

    // Pressed again: plain adding, nothing copied.
    PulsarTecla(Qt::Key_Escape); // drops the next new record the entry began
    PulsarTecla(Qt::Key_F5, Qt::ControlModifier);
    EXPECT_EQ(agregar->text(), QStringLiteral("&Agregar"));
    EXPECT_FALSE(agregar->isChecked());
    PulsarTecla(Qt::Key_A, Qt::AltModifier);
    Teclear(QStringLiteral("KG"));
    PulsarTecla(Qt::Key_Tab);
    PulsarTecla(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
    EXPECT_EQ(valor(QStringLiteral("SELECT COUNT(*) FROM UNIDADOB WHERE Codigo = 'KG' AND "
                                   "(Descripcion IS NULL OR Descripcion = '')")),
              QStringLiteral("1"));
}

TEST_P(RecordMenu, CtrlDeleteAsksAndDeletesOnlyOnSi) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')"),
                            QStringLiteral("('M2', 'Metro cuadrado', 'm2')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QTableView &g = *v->grid(QStringLiteral("DBGrid1"));
    ASSERT_NO_FATAL_FAILURE(celda(g, 1, kDescripcion));
    port_.answer(QStringLiteral("NO"));
    PulsarTecla(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(port_.texts(), QStringList{kEliminar});
    EXPECT_EQ(cuenta(), 2);
    EXPECT_EQ(g.model()->rowCount(), 2);

    port_.clear();
    port_.answer(QStringLiteral("SI"));
    PulsarTecla(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(port_.texts(), QStringList{kEliminar});
    EXPECT_EQ(valor(QStringLiteral("SELECT Codigo FROM UNIDADOB")), QStringLiteral("KG"));
    EXPECT_EQ(g.model()->rowCount(), 1);
}

TEST_P(RecordMenu, EscapeReturnsTheRowToItsStoredValues) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QTableView &g = *v->grid(QStringLiteral("DBGrid1"));
    ASSERT_NO_FATAL_FAILURE(celda(g, 0, kDescripcion));
    Teclear(QStringLiteral("Kilo"));
    PulsarTecla(Qt::Key_Tab); // the description is written: the record is being changed
    EXPECT_EQ(v->statusText(), QStringLiteral("Modificando registro 1"));
    EXPECT_EQ(texto(g, 0, kDescripcion), QStringLiteral("Kilo"));
    PulsarTecla(Qt::Key_Tab);      // over the memo
    Teclear(QStringLiteral("xx")); // the unit's editor is open
    ASSERT_NE(qobject_cast<QLineEdit *>(DestinoTeclas()), nullptr);
    PulsarTecla(Qt::Key_Escape);
    EXPECT_EQ(v->statusText(), QStringLiteral("Registro 1"));
    EXPECT_EQ(texto(g, 0, kDescripcion), QStringLiteral("Kilogramo"));
    EXPECT_EQ(texto(g, 0, kUnidad), QStringLiteral("kg"));
    EXPECT_EQ(valor(QStringLiteral("SELECT Descripcion, Unidad FROM UNIDADOB")),
              QStringLiteral("Kilogramo|kg"));
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
}

TEST_P(RecordMenu, TheFichaMenuSearchesRefreshesAndTellsWhatIsNotThereYet) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')"),
                            QStringLiteral("('M2', 'Metro cuadrado', 'm2')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QTableView &g = *v->grid(QStringLiteral("DBGrid1"));
    for (const char *n : {"Agregar", "Eliminar1", "CancelarEdicion1", "Buscar", "FiltrarRegistros1",
                          "EliminacionMultiple1", "CopiarRegistrosaOtrasEmpresas1", "Refrescar1",
                          "ListadoProgramable1", "FormatoOriginal1", "APaginaCompleta1", "Cerrar1"})
        ASSERT_NE(item(*v, QString::fromLatin1(n)), nullptr) << n;

    // The windows of later work say so, once each.
    for (const char *n : {"FiltrarRegistros1", "CopiarRegistrosaOtrasEmpresas1"}) {
        port_.clear();
        item(*v, QString::fromLatin1(n))->trigger();
        EXPECT_EQ(port_.texts(), QStringList{kNoDisponible}) << n;
    }

    // A row written behind the screen's back shows after "Refrescar", not before.
    ASSERT_FALSE(valor(QStringLiteral(
                           "INSERT INTO UNIDADOB (Codigo, Descripcion) VALUES ('TN', 'Tonelada')"))
                     .startsWith(QStringLiteral("Error")));
    ASSERT_NO_FATAL_FAILURE(celda(g, 1, kDescripcion));
    EXPECT_EQ(g.model()->rowCount(), 2);
    item(*v, QStringLiteral("Refrescar1"))->trigger();
    EXPECT_EQ(g.model()->rowCount(), 3);
    EXPECT_EQ(texto(g, 2, kCodigo), QStringLiteral("TN"));

    // "Buscar" opens the search on the screen's table and goes to the record chosen.
    QString titulo;
    const bool vista = test::EnVentanaModal([&] { item(*v, QStringLiteral("Buscar"))->trigger(); },
                                            [&](QWidget &d) {
                                                titulo = d.windowTitle();
                                                Teclear(QStringLiteral("TN"));
                                                PulsarTecla(Qt::Key_Return); // searches
                                                PulsarTecla(Qt::Key_Return); // accepts the row
                                            });
    EXPECT_TRUE(vista) << "no search window";
    EXPECT_TRUE(titulo.contains(QStringLiteral("UNIDADOB"))) << titulo.toStdString();
    EXPECT_EQ(texto(g, g.currentIndex().row(), kCodigo), QStringLiteral("TN"));

    // While a record is pending the menu neither searches, filters, deletes nor copies.
    PulsarTecla(Qt::Key_A, Qt::AltModifier);
    ASSERT_EQ(v->statusText(), QStringLiteral("Agregando registro"));
    for (const char *n : {"Agregar", "Eliminar1", "Buscar", "FiltrarRegistros1",
                          "EliminacionMultiple1", "CopiarRegistrosaOtrasEmpresas1", "Cerrar1"})
        EXPECT_FALSE(item(*v, QString::fromLatin1(n))->isEnabled()) << n;
    EXPECT_TRUE(item(*v, QStringLiteral("CancelarEdicion1"))->isEnabled());
    item(*v, QStringLiteral("CancelarEdicion1"))->trigger();
    EXPECT_EQ(v->statusText(), QStringLiteral("Registro 3"));
}

TEST_P(RecordMenu, EliminacionMultipleAsksTwiceAndDeletesEveryRecord) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')"),
                            QStringLiteral("('M2', 'Metro cuadrado', 'm2')"),
                            QStringLiteral("('ML', 'Metro lineal', 'm')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    const QString primera = QStringLiteral(
        "¡Esta opción elimina todos los registros activos de la tabla!. Puede utilizar "
        "previamente la opción Filtrar Registros del Menú Ficha para limitar los registros");
    const QString segunda = QStringLiteral(
        "¿Está Vd. realmente seguro de querer eliminar todos los registros activos de la tabla?");
    QAction *eliminar = item(*v, QStringLiteral("EliminacionMultiple1"));
    ASSERT_NE(eliminar, nullptr);

    port_.answer(QStringLiteral("NO"));
    eliminar->trigger();
    EXPECT_EQ(port_.texts(), QStringList{primera});
    EXPECT_EQ(cuenta(), 3);

    port_.clear();
    port_.answer(QStringLiteral("SI"));
    port_.answer(QStringLiteral("NO"));
    eliminar->trigger();
    EXPECT_EQ(port_.texts(), (QStringList{primera, segunda}));
    EXPECT_EQ(cuenta(), 3);

    port_.clear();
    port_.answer(QStringLiteral("SI"));
    port_.answer(QStringLiteral("SI"));
    eliminar->trigger();
    EXPECT_EQ(port_.texts(), (QStringList{primera, segunda}));
    EXPECT_EQ(cuenta(), 0);
    EXPECT_EQ(v->grid(QStringLiteral("DBGrid1"))->model()->rowCount(), 0);
    EXPECT_EQ(v->statusText(), QStringLiteral("Sin registros"));
}

TEST_P(RecordMenu, PrintingTheFormAsksThePrinterAndPrintsItsImage) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QTemporaryDir dir;
    for (const char *n : {"FormatoOriginal1", "APaginaCompleta1"}) {
        const QString pdf = dir.filePath(QString::fromLatin1(n) + QStringLiteral(".pdf"));
        // Cancelled: nothing printed.
        EXPECT_TRUE(test::EnVentanaModal([&] { item(*v, QString::fromLatin1(n))->trigger(); },
                                         [](QWidget &) {}))
            << n << ": no printer dialog";
        EXPECT_FALSE(QFile::exists(pdf));
        // Accepted, printing to a file.
        EXPECT_TRUE(test::EnVentanaModal([&] { item(*v, QString::fromLatin1(n))->trigger(); },
                                         [&](QWidget &d) {
                                             auto *nombre = d.findChild<QLineEdit *>(
                                                 QStringLiteral("filename"));
                                             ASSERT_NE(nombre, nullptr);
                                             nombre->setText(pdf);
                                             static_cast<QDialog &>(d).accept();
                                         }))
            << n;
        QFile f(pdf);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << n;
        const QByteArray contenido = f.readAll();
        EXPECT_TRUE(contenido.startsWith("%PDF")) << n;
        EXPECT_TRUE(contenido.contains("/Image")) << n << ": the form's image is on the page";
    }
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
}

TEST_P(RecordMenu, CtrlHPutsBackTheColumnsTheScreenDeclared) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QTableView &g = *v->grid(QStringLiteral("DBGrid1"));
    const QStringList declarados = titulos(g);
    const QList<int> anchosDeclarados = anchos(g);
    EXPECT_EQ(declarados.value(kCodigo), QStringLiteral("Código"));

    // The user drags "Código" after "Descripción Ampliada" and widens "Unidad".
    QHeaderView *h = g.horizontalHeader();
    h->moveSection(kCodigo, kAmpliada);
    h->resizeSection(h->logicalIndex(kUnidad), anchosDeclarados.value(kUnidad) + 150);
    EXPECT_EQ(titulos(g).value(kAmpliada), QStringLiteral("Código"));
    EXPECT_EQ(anchos(g).value(kUnidad), anchosDeclarados.value(kUnidad) + 150);
    // The grid's columns follow the header: the key column is where it was dragged.
    ASSERT_NO_FATAL_FAILURE(celda(g, 0, kAmpliada));
    EXPECT_EQ(texto(g, 0, kAmpliada), QStringLiteral("KG"));

    PulsarTecla(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(titulos(g), declarados);
    EXPECT_EQ(anchos(g), anchosDeclarados);
    EXPECT_EQ(texto(g, 0, kCodigo), QStringLiteral("KG"));
    EXPECT_EQ(g.currentIndex().column(), kCodigo);
    // The restored key column is the key again: it cannot be typed over.
    Teclear(QStringLiteral("X"));
    PulsarTecla(Qt::Key_Tab);
    EXPECT_EQ(port_.texts(),
              QStringList{QStringLiteral("¡ No se puede modificar la clave del registro !")});
    PulsarTecla(Qt::Key_Escape);
    EXPECT_EQ(valor(QStringLiteral("SELECT Codigo FROM UNIDADOB")), QStringLiteral("KG"));
}

TEST_P(RecordMenu, APickListColumnOffersItsValuesInADropDown) {
    FormView *v = arrancarEn(QStringLiteral("Maestro de Incidencias"));
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    PulsarTecla(Qt::Key_A, Qt::AltModifier);
    Teclear(QStringLiteral("7"));
    PulsarTecla(Qt::Key_Tab);
    Teclear(QStringLiteral("Lluvia"));
    PulsarTecla(Qt::Key_Tab);
    ASSERT_EQ(v->grid(QStringLiteral("DBGrid1"))->model()->headerData(2, Qt::Horizontal).toString(),
              QStringLiteral("Tipo"));
    PulsarTecla(Qt::Key_M); // opens the list on the first value with that letter
    auto *lista = qobject_cast<QComboBox *>(DestinoTeclas());
    ASSERT_NE(lista, nullptr) << "the permitted values are offered in a list";
    QStringList valores;
    for (int i = 0; i < lista->count(); ++i)
        valores << lista->itemText(i);
    EXPECT_EQ(valores, (QStringList{QStringLiteral("Trabajo"), QStringLiteral("Maquina")}));
    EXPECT_EQ(lista->currentText(), QStringLiteral("Maquina"));
    PulsarTecla(Qt::Key_Tab);
    PulsarTecla(Qt::Key_N); // Imputable: "NO"
    PulsarTecla(Qt::Key_Tab);
    PulsarTecla(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
    EXPECT_EQ(valor(QStringLiteral("SELECT Tipo, Imputable FROM INCIDENC WHERE Codigo = 7")),
              QStringLiteral("Maquina|NO"));
}

TEST_P(RecordMenu, TheKeypadPointInACellEditorIsTheDecimalComma) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QTableView &g = *v->grid(QStringLiteral("DBGrid1"));
    ASSERT_NO_FATAL_FAILURE(celda(g, 0, kIva));
    Teclear(QStringLiteral("21"));
    PulsarTecla(Qt::Key_Period, Qt::KeypadModifier);
    Teclear(QStringLiteral("5"));
    auto *editor = qobject_cast<QLineEdit *>(DestinoTeclas());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), QStringLiteral("21,5"));
    PulsarTecla(Qt::Key_Tab);
    EXPECT_EQ(v->statusText(), QStringLiteral("Modificando registro 1"));
    EXPECT_EQ(texto(g, 0, kIva), QStringLiteral("21,5"));
    PulsarTecla(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
    EXPECT_EQ(valor(QStringLiteral("SELECT COUNT(*) FROM UNIDADOB WHERE PorcentajeIVA = 21.5")),
              QStringLiteral("1"));

    // The point of the main keyboard stays a point; so does the keypad's with the option on.
    ASSERT_NO_FATAL_FAILURE(celda(g, 0, kRecargo));
    Teclear(QStringLiteral("5."));
    editor = qobject_cast<QLineEdit *>(DestinoTeclas());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), QStringLiteral("5."));
    PulsarTecla(Qt::Key_Escape);
    session_->aplicacion().datos().sesion().Teclado().DesactivarPuntoPorComaDecimal =
        QStringLiteral("SI");
    ASSERT_NO_FATAL_FAILURE(celda(g, 0, kRecargo));
    Teclear(QStringLiteral("5"));
    PulsarTecla(Qt::Key_Period, Qt::KeypadModifier);
    editor = qobject_cast<QLineEdit *>(DestinoTeclas());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), QStringLiteral("5."));
}

// One row per key of the key map that this screen answers: the key, where it
// is pressed, and what it does.
struct CasoTecla {
    const char *nombre;
    Qt::Key tecla;
    Qt::KeyboardModifiers modificadores;
    int columna;
    // Checks the effect; the messages shown are in `mensajes`.
    std::function<void(QTableView &, FormView &, const QStringList &mensajes)> efecto;
};

TEST_P(RecordMenu, EveryKeyOfTheMapDoesItsWorkOrSaysItIsNotAvailable) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')"),
                            QStringLiteral("('M2', 'Metro cuadrado', 'm2')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QTableView &g = *v->grid(QStringLiteral("DBGrid1"));
    auto noDisponible = [](QTableView &, FormView &, const QStringList &m) {
        EXPECT_EQ(m, QStringList{kNoDisponible});
    };
    const CasoTecla casos[] = {
        {"Ctrl+Z field viewer", Qt::Key_Z, Qt::ControlModifier, kDescripcion, noDisponible},
        {"Ctrl+numeric plus user fields", Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier,
         kDescripcion, noDisponible},
        {"Ctrl+R document responsibility", Qt::Key_R, Qt::ControlModifier, kDescripcion,
         noDisponible},
        {"Ctrl+G grid configuration", Qt::Key_G, Qt::ControlModifier, kDescripcion, noDisponible},
        {"F2 calculator on a number", Qt::Key_F2, Qt::NoModifier, kIva, noDisponible},
        {"Enter moves to the next column", Qt::Key_Return, Qt::NoModifier, kDescripcion,
         [](QTableView &t, FormView &, const QStringList &m) {
             EXPECT_TRUE(m.isEmpty());
             EXPECT_EQ(t.currentIndex().column(), kAmpliada);
         }},
        {"Ctrl+I clears the field", Qt::Key_I, Qt::ControlModifier, kUnidad,
         [](QTableView &t, FormView &f, const QStringList &m) {
             EXPECT_TRUE(m.isEmpty());
             EXPECT_EQ(texto(t, 0, kUnidad), QString());
             EXPECT_EQ(f.statusText(), QStringLiteral("Modificando registro 1"));
         }},
        {"Ctrl+S multi-row selection", Qt::Key_S, Qt::ControlModifier, kDescripcion,
         [](QTableView &t, FormView &, const QStringList &m) {
             EXPECT_TRUE(m.isEmpty());
             EXPECT_EQ(t.selectionMode(), QAbstractItemView::MultiSelection);
             EXPECT_EQ(t.selectionBehavior(), QAbstractItemView::SelectRows);
         }},
    };
    for (const CasoTecla &c : casos) {
        SCOPED_TRACE(c.nombre);
        ASSERT_NO_FATAL_FAILURE(celda(g, 0, c.columna));
        port_.clear();
        PulsarTecla(c.tecla, c.modificadores);
        c.efecto(g, *v, port_.texts());
        // Each case starts from the stored record.
        PulsarTecla(Qt::Key_Escape);
        EXPECT_EQ(v->statusText(), QStringLiteral("Registro 1"));
    }
    EXPECT_EQ(valor(QStringLiteral("SELECT Unidad FROM UNIDADOB WHERE Codigo = 'KG'")),
              QStringLiteral("kg"))
        << "nothing was stored";

    // Ctrl+Alt+C copies the record; Ctrl+Alt+V pastes it into a new one but its key.
    ASSERT_NO_FATAL_FAILURE(celda(g, 1, kDescripcion));
    PulsarTecla(Qt::Key_C, Qt::ControlModifier | Qt::AltModifier);
    PulsarTecla(Qt::Key_A, Qt::AltModifier);
    Teclear(QStringLiteral("M3"));
    PulsarTecla(Qt::Key_Tab);
    PulsarTecla(Qt::Key_V, Qt::ControlModifier | Qt::AltModifier);
    PulsarTecla(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
    EXPECT_EQ(valor(QStringLiteral("SELECT Descripcion, Unidad FROM UNIDADOB WHERE Codigo = 'M3'")),
              QStringLiteral("Metro cuadrado|m2"));

    // Shift+F5 in the new record the entry went on with: the selected field of
    // the table's last record (a key of one field has no group).
    ASSERT_EQ(v->statusText(), QStringLiteral("Agregando registro"));
    Teclear(QStringLiteral("AA"));
    PulsarTecla(Qt::Key_Tab);
    PulsarTecla(Qt::Key_F5, Qt::ShiftModifier);
    PulsarTecla(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
    EXPECT_EQ(valor(QStringLiteral("SELECT Descripcion, Unidad FROM UNIDADOB WHERE Codigo = 'AA'")),
              QStringLiteral("Metro cuadrado|"))
        << "the description of M3, the last record, and nothing else";
}

TEST_P(RecordMenu, AMemoIsEditedInItsTextWindowFromCtrlEnterItsButtonOrADoubleClick) {
    FormView *v = unidades({QStringLiteral("('KG', 'Kilogramo', 'kg')")});
    ASSERT_NE(v, nullptr) << mensajes().toStdString();
    QTableView &g = *v->grid(QStringLiteral("DBGrid1"));
    ASSERT_NO_FATAL_FAILURE(celda(g, 0, kAmpliada));
    EXPECT_EQ(texto(g, 0, kAmpliada), QStringLiteral(" ..."));

    // Ctrl+Enter: two lines typed, Enter between them, and "Aceptar".
    QString titulo;
    EXPECT_TRUE(test::EnVentanaModal(
        [] { PulsarTecla(Qt::Key_Return, Qt::ControlModifier); },
        [&](QWidget &d) {
            titulo = d.windowTitle();
            EXPECT_EQ(DestinoTeclas()->objectName(), QStringLiteral("Memo"));
            Teclear(QStringLiteral("Saco de 25"));
            PulsarTecla(Qt::Key_Return);
            Teclear(QStringLiteral("Palet de 40"));
            auto *aceptar = d.findChild<QPushButton *>(QStringLiteral("pbAceptar"));
            ASSERT_NE(aceptar, nullptr);
            QTest::mouseClick(aceptar, Qt::LeftButton);
        }))
        << "no text window";
    EXPECT_EQ(titulo, QStringLiteral("Unidad KG - Descripción Ampliada"));
    EXPECT_EQ(v->statusText(), QStringLiteral("Modificando registro 1"));
    PulsarTecla(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(port_.texts().isEmpty()) << mensajes().toStdString();
    // Without its blanks, so that the blank the result text gives for a line end
    // tells it.
    const QString sql = QStringLiteral(
        "SELECT REPLACE(DescripcionAmpliada, ' ', '') FROM UNIDADOB WHERE Codigo = 'KG'");
    EXPECT_EQ(valor(sql), QStringLiteral("Sacode25 Paletde40"));

    // The cell's button shows the stored text; "Cancelar" changes nothing.
    ASSERT_NO_FATAL_FAILURE(celda(g, 0, kAmpliada));
    PulsarTecla(Qt::Key_X); // opens the cell's editor: its button
    auto *boton = qobject_cast<QPushButton *>(DestinoTeclas());
    ASSERT_NE(boton, nullptr) << "the memo cell shows a button";
    EXPECT_EQ(boton->objectName(), QStringLiteral("BotonMemo"));
    QString mostrado;
    EXPECT_TRUE(test::EnVentanaModal([&] { QTest::mouseClick(boton, Qt::LeftButton); },
                                     [&](QWidget &d) {
                                         auto *memo = d.findChild<QPlainTextEdit *>();
                                         ASSERT_NE(memo, nullptr);
                                         mostrado = memo->toPlainText();
                                         memo->setPlainText(QStringLiteral("otro"));
                                         static_cast<QDialog &>(d).reject();
                                     }));
    EXPECT_EQ(mostrado, QStringLiteral("Saco de 25\nPalet de 40"));
    EXPECT_EQ(v->statusText(), QStringLiteral("Registro 1"));

    // A double click opens it too, instead of a search.
    ASSERT_NO_FATAL_FAILURE(celda(g, 0, kAmpliada));
    QString otra;
    EXPECT_TRUE(test::EnVentanaModal(
        [&] {
            QTest::mouseDClick(g.viewport(), Qt::LeftButton, {},
                               g.visualRect(g.model()->index(0, kAmpliada)).center());
        },
        [&](QWidget &d) { otra = d.objectName(); }));
    EXPECT_EQ(otra, QStringLiteral("EditorMemo"));
    EXPECT_EQ(valor(sql), QStringLiteral("Sacode25 Paletde40"));
}

INSTANTIATE_TEST_SUITE_P(Backends, RecordMenu,
                         ::testing::Values(Backend::SQLite, Backend::PostgreSQL),
                         co::test::backendName);

} // namespace
} // namespace co::ui
